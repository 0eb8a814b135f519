// Dark frames from image files.
#pragma once

#include <QImage>
#include <QString>

// Reads a frame for the detection: PNG, PGM and what other formats Qt has plugins for, one image pixel for each sensor
// pixel. Grey samples of more than 8 bits keep their upper 8 bits, so that the low byte of 16-bit samples is dropped.
// Files of 8 bits and colour files keep their values. A null image and, where error is not null, a full sentence there
// when the file cannot be read, is cut short or claims more than MaximumFramePixels.
QImage LoadFrameFile(const QString& path, QString* error);

constexpr qint64 MaximumFramePixels = qint64{1} << 28;
