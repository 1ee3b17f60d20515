// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/blank_bitmap.h"

#include "base/failure.h"
#include "desktop/qt_text.h"
#include "platform/files.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>

namespace kelmar::desktop {

namespace {

// More than any screen; beyond it a wrong number would cost gigabytes.
constexpr std::int32_t largestSide = 16384;

} // namespace

bool SaveBlankBitmap(std::int32_t width, std::int32_t height, const std::string& file) {
  if (width < 1 || height < 1 || width > largestSide || height > largestSide) return false;
  QImage image(width, height, QImage::Format_RGB32);
  if (image.isNull()) return false;
  image.fill(Qt::black); // as a fresh bitmap of the system is
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  const QByteArray extension = QFileInfo(qs(file)).suffix().toLatin1();
  if (!image.save(&buffer, extension.isEmpty() ? "BMP" : extension.constData())) return false;
  try {
    platform::writeWhole(file, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  } catch (const Failure&) {
    return false;
  }
  return true;
}

} // namespace kelmar::desktop
