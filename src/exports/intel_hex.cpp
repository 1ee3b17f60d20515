// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exports/intel_hex.h"

#include "base/failure.h"
#include "base/text.h"
#include "base/version.h"
#include "language/multi_lang.h"
#include "platform/files.h"

#include <algorithm>
#include <cstdint>
#include <vector>

// A record is ":" and pairs of digits for: count, address high, address low, type, data, checksum.
// The checksum makes the sum of all bytes a multiple of 256. In a FrameBuffer byte 1 is the count.

namespace kelmar {

namespace {

constexpr const char* source = "importFromH86File";
constexpr int overhead = 5; ///< bytes of a record besides its data
constexpr int firstData = 5;

enum RecordType { Data = 0, EndOfFile = 1, SegmentAddress = 2, LinearAddress = 4 };

std::uint8_t sumOf(const FrameBuffer& record) {
  std::uint8_t sum = 0;
  for (const std::uint8_t byte : record.bytes())
    sum = static_cast<std::uint8_t>(sum + byte);
  return sum;
}

/// The record as text, with its last byte made the checksum.
std::string recordText(FrameBuffer& record) {
  record.setByteAt(record.Length(), 0);
  record.setByteAt(record.Length(), static_cast<std::uint8_t>(-sumOf(record)));
  return ":" + record.HexText();
}

std::string recordText(const std::string& hex) {
  FrameBuffer record;
  record.setHexText(hex);
  return recordText(record);
}

std::string upperAddressText(std::uint32_t high) {
  FrameBuffer record;
  record.setHexText("02000004000055");
  record.setByteAt(firstData, static_cast<std::uint8_t>(high >> 8));
  record.setByteAt(firstData + 1, static_cast<std::uint8_t>(high));
  return recordText(record);
}

[[noreturn]] void fail(const std::string& text) {
  throw Failure(hexImportFailed, source, text);
}

/// What the records have written so far.
class Image {
 public:
  explicit Image(int maxLength) : maxLength_(static_cast<std::uint64_t>(std::max(maxLength, 0))) {}

  /// Bytes behind the limit are counted and not kept: they are refused in the end.
  void write(std::uint64_t address, const std::uint8_t* data, std::size_t count) {
    if (count == 0) return;
    length_ = std::max(length_, address + count);
    if (address >= maxLength_) return;
    const std::uint64_t end = std::min(address + count, maxLength_);
    if (bytes_.size() < end) bytes_.resize(end);
    std::copy_n(data, end - address, bytes_.begin() + static_cast<std::ptrdiff_t>(address));
  }

  std::uint64_t length() const { return length_; }
  bool fits() const { return length_ <= maxLength_; }

  std::string HexText() const {
    FrameBuffer buffer;
    buffer.setLength(static_cast<int>(bytes_.size()));
    for (std::size_t i = 0; i < bytes_.size(); ++i)
      buffer.setByteAt(buffer.LowerBound() + static_cast<int>(i), bytes_[i]);
    return buffer.HexText();
  }

 private:
  std::uint64_t maxLength_, length_ = 0;
  std::vector<std::uint8_t> bytes_;
};

/// The lines of a file, looked at one after the other where they stand.
class Lines {
 public:
  Lines(std::string_view text, std::string_view separator) : rest_(text), separator_(separator) {}

  bool next(std::string_view& line) {
    if (atEnd_) return false;
    const std::size_t end = rest_.find(separator_);
    line = rest_.substr(0, end);
    atEnd_ = end == std::string_view::npos;
    if (!atEnd_) rest_.remove_prefix(end + separator_.size());
    return true;
  }

 private:
  std::string_view rest_, separator_;
  bool atEnd_ = false;
};

/// The line end of the file: CR LF, unless there is none and LF parts it into lines. A file that
/// mixes both is split at CR LF alone, on purpose, and fails at the lines that then hang together.
std::string_view lineEndOf(std::string_view text, platform::Person& person) {
  constexpr std::string_view crLf = "\r\n", lineFeed = "\n";
  if (text.find(crLf) != std::string_view::npos) return crLf;
  if (text.find(lineFeed) == std::string_view::npos) return crLf;
  platform::Box box;
  box.key = "REQUESTS/MSG/importFromH86File/lineDelimiterWarning/text";
  box.title = applicationTitle;
  box.text = language::global().getMultilangMessageDefault(
      "File should use CRLF as line delimiter.",
      "REQUESTS/MSG/importFromH86File/lineDelimiterWarning/text");
  box.icon = platform::Icon::Exclamation;
  person.message(box);
  return lineFeed;
}

class Reader {
 public:
  explicit Reader(int maxLength) : image_(maxLength) {}

  void readLine(std::string_view line) {
    ++lineNumber_;
    line = line.substr(0, line.find_last_not_of(' ') + 1);
    if (line.empty()) return;
    if (line.front() != ':')
      fail(language::global().getMultilangMessageDefault(
          ": missing at line {0}", "REQUESTS/MSG/importFromH86File/colonMissing/text",
          lineNumber()));
    FrameBuffer record;
    try {
      record.setHexText(line.substr(1));
    } catch (const Failure& failure) {
      throw Failure(hexImportFailed, failure.source, failure.text);
    }
    readRecord(record);
  }

  const Image& image() const { return image_; }

 private:
  void readRecord(const FrameBuffer& record) {
    if (sumOf(record) != 0)
      fail(language::global().getMultilangMessageDefault(
          "Checksum error at line {0}", "REQUESTS/MSG/importFromH86File/checksumError/text",
          lineNumber()));
    const int length = record.Length();
    if (length < overhead || record.ByteAt(1) != length - overhead) failLength();
    switch (record.ByteAt(4)) {
    case Data:
      image_.write(offset_ + record.ByteAt(2) * 256u + record.ByteAt(3),
                   record.bytes().data() + firstData - 1, record.ByteAt(1));
      break;
    case EndOfFile: // on purpose not the end: what follows still counts
      break;
    case SegmentAddress:
      offset_ = addressIn(record) * 16;
      break;
    case LinearAddress:
      offset_ = addressIn(record) * 0x10000;
      break;
    default:
      fail(language::global().getMultilangMessageDefault(
          "Unsupported record type {0}H at line {1}",
          "REQUESTS/MSG/importFromH86File/unsupportedRecordType/text", hexText(record.ByteAt(4)),
          lineNumber()));
    }
  }

  std::uint64_t addressIn(const FrameBuffer& record) const {
    if (record.ByteAt(1) < 2) failLength(); // else the checksum would count as address
    return record.ByteAt(firstData) * 256u + record.ByteAt(firstData + 1);
  }

  [[noreturn]] void failLength() const {
    fail(language::global().getMultilangMessageDefault(
        "Bad length at line {0}", "REQUESTS/MSG/importFromH86File/badLength/text", lineNumber()));
  }

  std::string lineNumber() const { return std::to_string(lineNumber_); }

  Image image_;
  std::uint64_t offset_ = 0;
  std::size_t lineNumber_ = 0;
};

std::string bytesOfFile(const std::string& fileName) {
  try {
    return platform::readFile(fileName);
  } catch (const Failure& failure) {
    throw Failure(hexImportFailed, source, failure.text);
  }
}

} // namespace

std::string intelHexOf(const FrameBuffer& buffer) {
  constexpr std::size_t longestRecord = 16;
  constexpr std::size_t charactersPerByte = 4; // of a full record, roughly
  const std::vector<std::uint8_t>& bytes = buffer.bytes();
  std::string text = upperAddressText(0) + "\r\n";
  text.reserve(bytes.size() * charactersPerByte);
  std::uint32_t high = 0;
  for (std::size_t address = 0; address < bytes.size();) {
    const std::size_t count = std::min(bytes.size() - address, longestRecord);
    if (const auto reached = static_cast<std::uint32_t>(address / 0x10000); reached != high) {
      high = reached;
      text += upperAddressText(high) + "\r\n";
    }
    FrameBuffer record;
    record.setLength(static_cast<int>(count) + overhead);
    record.setByteAt(1, static_cast<std::uint8_t>(count));
    record.setByteAt(2, static_cast<std::uint8_t>(address / 256));
    record.setByteAt(3, static_cast<std::uint8_t>(address));
    record.setByteAt(4, Data);
    for (std::size_t i = 0; i < count; ++i)
      record.setByteAt(firstData + static_cast<int>(i), bytes[address + i]);
    text += recordText(record) + "\r\n";
    address += count;
  }
  return text + recordText("0000000155");
}

void exportToH86File(const FrameBuffer& buffer, const std::string& fileName) {
  platform::writeWhole(fileName, intelHexOf(buffer));
}

std::string bytesOfIntelHex(std::string_view text, int maxLength, platform::Person& person) {
  Reader reader(maxLength);
  Lines lines(text, lineEndOf(text, person));
  for (std::string_view line; lines.next(line);)
    reader.readLine(line);
  const Image& image = reader.image();
  if (image.length() == 0)
    fail(language::global().getMultilangMessageDefault(
        "Empty file", "REQUESTS/MSG/importFromH86File/Empty/text"));
  if (!image.fits())
    // The default is kept: the language file has the text that names both lengths.
    fail(language::global().getMultilangMessageDefault(
        "Empty file", "REQUESTS/MSG/importFromH86File/TooBig/text", std::to_string(maxLength),
        std::to_string(image.length())));
  return image.HexText();
}

std::string importFromH86File(const std::string& fileName, int maxLength,
                              platform::Person& person) {
  return bytesOfIntelHex(bytesOfFile(fileName), maxLength, person);
}

} // namespace kelmar
