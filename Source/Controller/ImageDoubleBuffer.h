// Two images between the thread that converts frames and the one that shows them.
#pragma once

#include <QImage>

#include <array>
#include <atomic>
#include <shared_mutex>

// The converting thread works on the back image and the showing thread on the front image, both under the lock for
// reading, so that they work at the same time; flipping and reallocating exclude them. The lock is not recursive, and a
// thread that holds it must not call the controller, whose operations may wait for it.
class ImageDoubleBuffer
{
public:
    // Both images become new ones of this size in pixels, of Format_RGB32 and undefined content. Any thread. False, and
    // null images, when there is no memory for that.
    bool SetImages(int width, int height);
    // Both images become null images. Any thread.
    void SetDefImages();

    // For reading.
    void Lock();
    void Unlock();
    // Makes the back image the front image. The caller does not hold the lock.
    void Swap();

    // Valid under the lock; never null pointers.
    QImage* Front() { return &m_images[m_frontIndex]; }
    QImage* Back() { return &m_images[m_frontIndex ^ 1U]; }

private:
    std::array<QImage, 2> m_images;
    std::shared_mutex m_lock;
    std::atomic<quint32> m_frontIndex{0};
};
