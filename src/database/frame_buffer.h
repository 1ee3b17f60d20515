// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar {

/// The bytes of a frame. Indexes start at LowerBound, which is 1 in a new buffer.
class FrameBuffer {
 public:
  /// A window on bytes of a buffer. It stays a view: what it shows and what it writes are the bytes
  /// of the buffer, which must outlive it. An index outside the buffer raises SubscriptOutOfRange
  /// when the view is read or written.
  class View {
   public:
    int Length() const { return count_; }
    std::uint8_t ByteAt(int offset) const; ///< offset 0..Length-1
    void setByteAt(int offset, std::uint8_t value);
    std::string HexText() const;
    /// Overwrites the first bytes of the view. Raises TypeMismatch for text that is not pairs of
    /// hexadecimal digits, SubscriptOutOfRange for more bytes than the view has; then nothing
    /// changes.
    void setHexText(std::string_view text);

   private:
    friend class FrameBuffer;
    View(FrameBuffer& buffer, int start, int count)
        : buffer_(&buffer), start_(start), count_(count) {}
    FrameBuffer* buffer_;
    int start_, count_;
  };

  int Length() const { return static_cast<int>(bytes_.size()); }
  /// Truncates, or extends with zero bytes. Raises SubscriptOutOfRange for a negative length.
  void setLength(int length);
  int LowerBound() const { return lowerBound_; }
  void setLowerBound(int index) { lowerBound_ = index; }

  /// Raises SubscriptOutOfRange.
  std::uint8_t ByteAt(int index) const;
  void setByteAt(int index, std::uint8_t value);

  /// `count` bytes from the byte with index `start`. Raises SubscriptOutOfRange when they are not
  /// all in the buffer.
  View Range(int start, int count);

  /// Upper-case pairs without separators, such as "3E00".
  std::string HexText() const;
  /// Replaces the content. Raises TypeMismatch for text that is not pairs of hexadecimal digits,
  /// and then nothing changes.
  void setHexText(std::string_view text);

  const std::vector<std::uint8_t>& bytes() const { return bytes_; }

 private:
  std::size_t offsetOf(int index) const;

  std::vector<std::uint8_t> bytes_;
  int lowerBound_ = 1;
};

} // namespace kelmar
