// Two images between the thread that converts frames and the one that shows them.
#include "ImageDoubleBuffer.h"

#include <mutex>

bool ImageDoubleBuffer::SetImages(int width, int height)
{
    const std::lock_guard lock(m_lock);
    for (QImage& image : m_images)
    {
        image = QImage(width, height, QImage::Format_RGB32);
    }
    if (m_images[0].isNull() || m_images[1].isNull())
    {
        m_images = {};
        return false;
    }
    return true;
}

void ImageDoubleBuffer::SetDefImages()
{
    const std::lock_guard lock(m_lock);
    for (QImage& image : m_images)
    {
        image = QImage();
    }
}

void ImageDoubleBuffer::Lock()
{
    m_lock.lock_shared();
}

void ImageDoubleBuffer::Unlock()
{
    m_lock.unlock_shared();
}

void ImageDoubleBuffer::Swap()
{
    const std::lock_guard lock(m_lock);
    m_frontIndex ^= 1U;
}
