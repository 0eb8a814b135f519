// Two images between the thread that converts frames and the one that shows them.
#include "ImageDoubleBuffer.h"

#include <QWriteLocker>

bool ImageDoubleBuffer::SetImages(int width, int height)
{
    const QWriteLocker lock(&m_lock);
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
    const QWriteLocker lock(&m_lock);
    for (QImage& image : m_images)
    {
        image = QImage();
    }
}

void ImageDoubleBuffer::Lock()
{
    m_lock.lockForRead();
}

// The index hands the images over once more, beside the lock: ThreadSanitizer does not see Qt's locks, and would look at
// each pixel that the other thread writes later.
void ImageDoubleBuffer::Unlock()
{
    m_frontIndex.fetch_or(0);
    m_lock.unlock();
}

void ImageDoubleBuffer::Swap()
{
    const QWriteLocker lock(&m_lock);
    m_frontIndex ^= 1U;
}
