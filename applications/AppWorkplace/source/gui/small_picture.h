#pragma once

#include <QImage>

/// The picture with the 256 colours that it has most of, every other one as the nearest of them: a small file, and to
/// the eye the same where surfaces are plain.
QImage smallPicture(const QImage& picture);
