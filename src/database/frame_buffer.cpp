// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/frame_buffer.h"

#include "base/failure.h"

#include <algorithm>

namespace kelmar {

namespace {

int digitOf(char character) {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  if (character >= 'a' && character <= 'f') return character - 'a' + 10;
  return -1;
}

std::vector<std::uint8_t> bytesOfHex(std::string_view text) {
  if (text.size() % 2 != 0) throw platformFailure(TypeMismatch, "FrameBuffer.HexText");
  std::vector<std::uint8_t> bytes(text.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const int high = digitOf(text[2 * i]), low = digitOf(text[2 * i + 1]);
    if (high < 0 || low < 0) throw platformFailure(TypeMismatch, "FrameBuffer.HexText");
    bytes[i] = static_cast<std::uint8_t>(high * 16 + low);
  }
  return bytes;
}

template <class Iterator>
std::string hexOfBytes(Iterator begin, Iterator end) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string text;
  text.reserve(static_cast<std::size_t>(end - begin) * 2);
  for (; begin != end; ++begin) {
    text += digits[*begin >> 4];
    text += digits[*begin & 15];
  }
  return text;
}

} // namespace

std::size_t FrameBuffer::offsetOf(int index) const {
  const std::int64_t offset = static_cast<std::int64_t>(index) - lowerBound_;
  if (offset < 0 || offset >= Length()) throw platformFailure(SubscriptOutOfRange, "FrameBuffer");
  return static_cast<std::size_t>(offset);
}

void FrameBuffer::setLength(int length) {
  if (length < 0) throw platformFailure(SubscriptOutOfRange, "FrameBuffer.Length");
  bytes_.resize(static_cast<std::size_t>(length));
}

std::uint8_t FrameBuffer::ByteAt(int index) const {
  return bytes_[offsetOf(index)];
}

void FrameBuffer::setByteAt(int index, std::uint8_t value) {
  bytes_[offsetOf(index)] = value;
}

FrameBuffer::View FrameBuffer::Range(int start, int count) {
  const std::int64_t offset = static_cast<std::int64_t>(start) - lowerBound_;
  if (count < 0 || offset < 0 || offset + count > Length())
    throw platformFailure(SubscriptOutOfRange, "FrameBuffer.Range");
  return View(*this, start, count);
}

std::string FrameBuffer::HexText() const {
  return hexOfBytes(bytes_.begin(), bytes_.end());
}

void FrameBuffer::setHexText(std::string_view text) {
  bytes_ = bytesOfHex(text);
}

std::uint8_t FrameBuffer::View::ByteAt(int offset) const {
  if (offset < 0 || offset >= count_) throw platformFailure(SubscriptOutOfRange, "FrameBuffer");
  return buffer_->ByteAt(start_ + offset);
}

void FrameBuffer::View::setByteAt(int offset, std::uint8_t value) {
  if (offset < 0 || offset >= count_) throw platformFailure(SubscriptOutOfRange, "FrameBuffer");
  buffer_->setByteAt(start_ + offset, value);
}

std::string FrameBuffer::View::HexText() const {
  if (count_ == 0) return {};
  const std::size_t first = buffer_->offsetOf(start_);
  buffer_->offsetOf(start_ + count_ - 1);
  const auto begin = buffer_->bytes_.begin() + static_cast<std::ptrdiff_t>(first);
  return hexOfBytes(begin, begin + count_);
}

void FrameBuffer::View::setHexText(std::string_view text) {
  const std::vector<std::uint8_t> bytes = bytesOfHex(text);
  if (bytes.size() > static_cast<std::size_t>(count_))
    throw platformFailure(SubscriptOutOfRange, "FrameBuffer.HexText");
  if (bytes.empty()) return;
  const std::size_t first = buffer_->offsetOf(start_);
  buffer_->offsetOf(start_ + static_cast<int>(bytes.size()) - 1);
  std::copy(bytes.begin(), bytes.end(),
            buffer_->bytes_.begin() + static_cast<std::ptrdiff_t>(first));
}

} // namespace kelmar
