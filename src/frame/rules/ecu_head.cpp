// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/ecu_head.h"

#include "base/failure.h"
#include "frame/rules/ecu_head_run.h"
#include "platform/file_handle.h"
#include "xml/encoding.h"

#include <algorithm>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <utility>

namespace kelmar {

namespace {

// Most heads fit into the first piece, which is one page of the machine. Each further piece is as
// long as all before it, so that a long head, or one long token in it, is not read over and over.
constexpr std::size_t firstPiece = 4096;
constexpr std::size_t longestHead = 16u << 20;

/// Turns pieces of a file into pieces of UTF-8 text.
class Decoder {
 public:
  /// From the first bytes of the file. Gives the reason when the encoding cannot be told.
  std::string begin(std::string_view head) {
    const xml::DetectedEncoding found = xml::detectEncoding(head.substr(0, 1024));
    if (!found.error.empty())
      return found.error + ", line " + std::to_string(found.line) + ", column " +
             std::to_string(found.column);
    encoding_ = found.encoding;
    mark_ = found.markLength;
    return {};
  }

  /// The result is valid until the next call.
  std::string_view decode(std::string_view bytes, bool last) {
    bytes.remove_prefix(std::exchange(mark_, 0));
    if (encoding_ == xml::Encoding::Utf8) return bytes;
    const bool wide =
        encoding_ == xml::Encoding::Utf16LittleEndian || encoding_ == xml::Encoding::Utf16BigEndian;
    if (!wide) {
      text_ = xml::toUtf8(bytes, encoding_);
      return text_;
    }
    held_ += bytes;
    const std::size_t whole = last ? held_.size() : wholeCharacters();
    text_ = xml::toUtf8(std::string_view(held_).substr(0, whole), encoding_);
    held_.erase(0, whole);
    return text_;
  }

 private:
  // Without half a unit at the end, and without the first unit of a pair.
  std::size_t wholeCharacters() const {
    const std::size_t even = held_.size() / 2 * 2;
    if (even == 0) return 0;
    const char high = held_[encoding_ == xml::Encoding::Utf16LittleEndian ? even - 1 : even - 2];
    return (static_cast<unsigned char>(high) & 0xFCu) == 0xD8u ? even - 2 : even;
  }

  xml::Encoding encoding_ = xml::Encoding::Utf8;
  std::size_t mark_ = 0;
  std::string text_, held_;
};

EcuHead failed(const std::string& trouble) {
  EcuHead head;
  head.trouble = trouble;
  return head;
}

EcuHead read(const std::string& path, std::optional<std::int32_t> onlyFunction) {
  const platform::FileHandle file = platform::openForReading(path);
  // Reading ahead would fetch the data that are not wanted.
  ::posix_fadvise(file.descriptor(), 0, 0, POSIX_FADV_RANDOM);
  EcuHead head;
  EcuHeadRun run(head, onlyFunction);
  Decoder decoder;
  char first[firstPiece];
  std::string buffer;
  std::size_t total = 0;
  for (bool more = true; more;) {
    const std::size_t wanted = std::max(firstPiece, total);
    if (total > 0) buffer.resize(wanted);
    char* const place = total > 0 ? buffer.data() : first;
    const std::size_t got = platform::readSome(file, place, wanted, path);
    const std::string_view bytes(place, got);
    if (total == 0) {
      if (const std::string reason = decoder.begin(bytes); !reason.empty()) {
        head = failed(reason);
        head.bytesRead = got;
        return head;
      }
    }
    total += got;
    const bool last = got < wanted;
    more = run.feed(decoder.decode(bytes, last), last);
    if (more && total >= longestHead)
      return failed("the head of the file is longer than " + std::to_string(longestHead >> 20) +
                    " MB");
  }
  head.bytesRead = total;
  return head;
}

} // namespace

EcuHead readEcuHead(const std::string& path, std::optional<std::int32_t> onlyFunction) {
  try {
    return read(path, onlyFunction);
  } catch (const Failure& failure) {
    return failed(failure.text);
  } catch (const std::bad_alloc&) {
    return failed("out of memory");
  }
}

} // namespace kelmar
