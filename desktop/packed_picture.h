// Small pictures on their way into the list and out of it.
#pragma once

#include <QImage>

#include "platform/thumbnail_source.h"

namespace tallowbrook {

// The size of a picture that is made to fit; one that fits stays as it is. At least 1 x 1.
QSize FittedSize(QSize picture, QSize room);
QImage Fitted(const QImage& picture, QSize room);

// The pixels alone, 32 bits each and in the colours of screens (sRGB): files carry along texts and
// profiles of any length.
QImage PlainPicture(QImage picture);

// A picture of up to 100 x 100 pixels comes out at 15 KB at most: one that is transparent somewhere
// stays so unless it would take more. Nothing for a null picture.
std::optional<PackedBitmap> Pack(const QImage& picture);
// Null if the bytes are none that Pack made.
QImage Unpack(const PackedBitmap& packed);

}  // namespace tallowbrook
