// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/document.h"

#include "base/failure.h"
#include "platform/file_handle.h"
#include "platform/files.h"
#include "platform/large_pages.h"
#include "platform/machine.h"
#include "xml/encoding.h"
#include "xml/event_tree.h"
#include "xml/judge.h"
#include "xml/line_table.h"
#include "xml/white_space.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <latch>
#include <new>
#include <optional>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>

namespace kelmar::xml {

namespace {

// From here on a second thread is worth its start.
constexpr std::size_t largeFile = 1u << 20;
// The tree and what its reader makes of it take about so many times the bytes of the file.
constexpr std::size_t modelBytes = 4;
constexpr std::size_t headSize = 1024;
constexpr std::size_t pieceSize = 1u << 16;

// White space is kept by choice of the caller; comments and instructions always are.
constexpr unsigned parseFlags = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol |
                                pugi::parse_wconv_attribute | pugi::parse_comments |
                                pugi::parse_pi | pugi::parse_declaration;

// A sum over bytes by which two reads of a file are told to be the same. Pieces are multiples of
// eight bytes, all but the last.
class Fingerprint {
 public:
  void add(const char* bytes, std::size_t size) {
    for (; size >= 8; bytes += 8, size -= 8)
      mix(bytes, 8);
    if (size > 0) mix(bytes, size);
  }
  bool operator==(const Fingerprint&) const = default;

 private:
  void mix(const char* bytes, std::size_t size) {
    std::uint64_t word = size;
    std::memcpy(&word, bytes, size);
    sum_ = (sum_ ^ word) * 0x9E3779B97F4A7C15u;
    sum_ ^= sum_ >> 29;
    length_ += size;
  }
  std::uint64_t sum_ = 0, length_ = 0;
};

bool startsWithIgnoringCase(const std::string& text, std::string_view lower) {
  return text.size() >= lower.size() &&
         std::equal(lower.begin(), lower.end(), text.begin(), [](char expected, char c) {
           return expected == (c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
         });
}

} // namespace

struct Document::Source {
  // The tree's texts lie in one of the two buffers, so it goes first.
  platform::Memory fileBytes;
  std::string text;
  pugi::xml_document tree;
  LineTable lines;
  std::latch* linesAwaited = nullptr; // while another thread makes them
  NodeLines nodeLines;
  std::size_t size = 0;
  std::optional<std::size_t> depth; // as far as the quick look knows

  ~Source() {
    tree.reset();
    text = {};
    fileBytes.reset();
    // The pages of the tree are small blocks, which the allocator would keep for later.
    if (size >= largeFile) platform::giveBackMemory();
  }

  // Bytes of the file whose nodes are gone: those of the first children of one element, up to the
  // first that is left.
  const void* discardedFrom = nullptr; // that element
  std::size_t discardedStart = 0;

  // A node made later may take the place of one that goes.
  void forgetLines(Node top) {
    if (nodeLines.empty()) return;
    for (Node node = top; node;) {
      nodeLines.erase(node.internal_object());
      if (const Node child = node.first_child()) {
        node = child;
        continue;
      }
      while (node != top && !node.next_sibling())
        node = node.parent();
      if (node == top) break;
      node = node.next_sibling();
    }
  }

  void discard(Node node) {
    if (node.internal_object() == discardedFrom) discardedFrom = nullptr;
    Node parent = node.parent();
    const Node next = node.next_sibling();
    const bool first = !node.previous_sibling();
    const std::ptrdiff_t start = node.offset_debug(), end = next.offset_debug();
    if (!parent.remove_child(node) || !fileBytes || !first || start < 0 || end < 0) return;
    if (discardedFrom != parent.internal_object()) {
      discardedFrom = parent.internal_object();
      discardedStart = static_cast<std::size_t>(start);
    }
    constexpr std::uintptr_t page = platform::largePage;
    if (static_cast<std::size_t>(end) < discardedStart + 2 * page) return;
    // Only whole pages; the tree never reads them again.
    const auto base = reinterpret_cast<std::uintptr_t>(fileBytes.get());
    const std::uintptr_t from = (base + discardedStart + page - 1) / page * page;
    const std::uintptr_t to = (base + static_cast<std::size_t>(end) - 1) / page * page;
    ::madvise(reinterpret_cast<void*>(from), to - from, MADV_DONTNEED);
    discardedStart = to - base;
  }

  // Parses what has been or is being judged; the text is used up.
  bool parseInPlace(char* bytes, std::size_t length, Whitespace whitespace) {
    size = length;
    const MarkupScan scan = scanMarkup({bytes, length});
    depth = scan.depth;
    const bool keep = whitespace == Whitespace::Keep || scan.whiteSpaceMatters;
    const unsigned flags =
        parseFlags | (keep ? pugi::parse_ws_pcdata : pugi::parse_ws_pcdata_single);
    return static_cast<bool>(tree.load_buffer_inplace(bytes, length, flags, pugi::encoding_utf8));
  }
};

Document::Document(const Limits& limits) : limits_(limits), source_(std::make_unique<Source>()) {}
Document::~Document() = default;
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;

bool Document::fail(int code, const std::string& reason, std::size_t line, std::size_t column) {
  return fail({code, reason, line, column});
}

bool Document::fail(ParseError error) {
  source_ = std::make_unique<Source>();
  error_ = std::move(error);
  if (error_.line != 0)
    error_.reason +=
        ", line " + std::to_string(error_.line) + ", column " + std::to_string(error_.column);
  return false;
}

bool Document::load(const std::string& pathOrUrl, platform::Fetch* fetch, Whitespace whitespace,
                    const Reader& reader) {
  bool isReading = false;
  const Reader tracked = [&] {
    isReading = true;
    if (reader) reader();
    isReading = false;
  };
  try {
    if (startsWithIgnoringCase(pathOrUrl, "http:") || startsWithIgnoringCase(pathOrUrl, "https:")) {
      if (!fetch) return fail(NotReadable, pathOrUrl + ": no network access here");
      if (!loadBytes(fetch->get(pathOrUrl), whitespace)) return false;
      tracked();
      return true;
    }
    return loadFile(platform::localPathOf(pathOrUrl), whitespace, tracked);
  } catch (const Failure& failure) {
    if (isReading) throw;
    return fail(NotReadable, failure.text);
  } catch (const std::bad_alloc&) {
    return fail(OutOfMemory, "out of memory");
  }
}

bool Document::loadBytes(std::string bytes, Whitespace whitespace) {
  try {
    const DetectedEncoding found = detectEncoding(std::string_view(bytes).substr(0, headSize));
    if (!found.error.empty()) return fail(UnknownEncoding, found.error, found.line, found.column);
    if (found.encoding == Encoding::Utf8)
      return loadText(std::move(bytes), found.markLength, whitespace);
    std::string text = toUtf8(std::string_view(bytes).substr(found.markLength), found.encoding);
    bytes = {};
    return loadText(std::move(text), 0, whitespace);
  } catch (const std::bad_alloc&) {
    return fail(OutOfMemory, "out of memory");
  }
}

bool Document::loadXML(std::string text) {
  try {
    const std::size_t markLength = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    return loadText(std::move(text), markLength, Whitespace::Keep);
  } catch (const std::bad_alloc&) {
    return fail(OutOfMemory, "out of memory");
  }
}

bool Document::loadText(std::string text, std::size_t markLength, Whitespace whitespace) {
  source_ = std::make_unique<Source>();
  error_ = {};
  const std::string_view view = std::string_view(text).substr(markLength);
  Judge judge(limits_, view.size());
  if (judge.run(view)) {
    source_->text = std::move(text);
    source_->lines.add(std::string_view(source_->text).substr(markLength));
    if (source_->parseInPlace(source_->text.data() + markLength, source_->text.size() - markLength,
                              whitespace))
      return true;
    return fail(OutOfMemory, "out of memory");
  }
  if (!judge.needsEvents()) return fail(judge.error());

  EventTree events(limits_, view.size(), source_->tree, source_->nodeLines);
  source_->size = view.size();
  return events.run(view) || fail(events.error());
}

// A large file is read twice at once: the judge reads it in small pieces on a thread of its own
// while the tree is made here, and neither result counts without the other. Expat takes the longer
// of the two, so that the tree costs no time. Nothing of the thread outlives this function.
bool Document::loadFile(const std::string& path, Whitespace whitespace, const Reader& reader) {
  const auto loadWhole = [&] {
    if (!loadBytes(platform::readFile(path), whitespace)) return false;
    reader();
    return true;
  };
  const platform::FileHandle file = platform::openForReading(path);
  struct stat status {};
  const bool regular = ::fstat(file.descriptor(), &status) == 0 && S_ISREG(status.st_mode);
  const auto size = regular ? static_cast<std::size_t>(status.st_size) : 0;
  if (size < largeFile) return loadWhole();

  char head[headSize];
  const DetectedEncoding found =
      detectEncoding({head, platform::readSomeAt(file, head, sizeof head, 0, path)});
  if (!found.error.empty() || found.encoding != Encoding::Utf8) return loadWhole();

  source_ = std::make_unique<Source>();
  error_ = {};
  const std::size_t length = size - found.markLength;
  source_->fileBytes = platform::largeMemory(length);
  platform::expectAllocations(length * modelBytes);
  const auto readAt = [&](char* to, std::size_t wanted, std::size_t offset) {
    return platform::readSomeAt(file, to, std::min(wanted, length - offset),
                                offset + found.markLength, path);
  };

  Judge judge(limits_, length);
  Fingerprint judged, parsed;
  bool wellFormed = false, readFailed = false, parsedWell = false, isRead = false;
  // The judge has the lighter work, so it counts the lines, too.
  LineTable& lines = source_->lines;
  std::latch linesMade(1);
  struct Awaited {
    std::latch*& pointer;
    ~Awaited() { pointer = nullptr; }
  };
  const auto judgeFile = [&] {
    std::size_t offset = 0;
    wellFormed = judge.run([&](char* to, std::size_t wanted) {
      std::size_t got = 0;
      try {
        got = readAt(to, wanted, offset);
        lines.add({to, got});
      } catch (const std::exception&) {
        readFailed = true;
        got = 0;
      }
      judged.add(to, got);
      offset += got;
      return got;
    });
    linesMade.count_down();
  };
  try {
    const Awaited untilJoined{source_->linesAwaited = &linesMade};
    const std::jthread beside(judgeFile);
    char* const bytes = source_->fileBytes.get();
    std::size_t offset = 0;
    while (offset < length) {
      const std::size_t got = readAt(bytes + offset, pieceSize, offset);
      if (got == 0) break;
      parsed.add(bytes + offset, got);
      offset += got;
    }
    parsedWell = source_->parseInPlace(bytes, offset, whitespace);
    // A tree of a depth that is not known to be bearable waits for the judge.
    if (parsedWell && source_->depth && *source_->depth <= limits_.depth) {
      reader();
      isRead = true;
    }
  } catch (const std::system_error&) {
    parsedWell = false; // no second thread to be had
  }
  if (!judge.needsEvents() && judge.error().errorCode != 0 && !readFailed)
    return fail(judge.error());
  if (wellFormed && parsedWell && judged == parsed) {
    if (!isRead) reader();
    return true;
  }

  // A DTD, or a file that fails or changes while it is read: one after the other, from one read.
  source_ = std::make_unique<Source>();
  return loadWhole();
}

std::size_t Document::sourceSize() const {
  return source_ ? source_->size : 0;
}

Node Document::node() const {
  return source_ ? source_->tree : Node();
}

Node Document::root() const {
  return source_ ? source_->tree.document_element() : Node();
}

pugi::xpath_node Document::selectSingleNode(const std::string& path) const {
  return xml::selectSingleNode(node(), path);
}

std::vector<Node> Document::selectNodes(const std::string& path) const {
  return xml::selectNodes(node(), path);
}

void Document::discard(Node node) {
  if (!source_ || !node || node.root() != source_->tree || node == source_->tree) return;
  source_->forgetLines(node);
  source_->discard(node);
}

std::size_t Document::lineOf(Node node) const {
  if (!source_ || !node) return 0;
  if (const auto found = source_->nodeLines.find(node.internal_object());
      found != source_->nodeLines.end())
    return found->second;
  if (node.root() != source_->tree) return 0;
  if (source_->linesAwaited) source_->linesAwaited->wait();
  const std::ptrdiff_t offset = node.offset_debug();
  return offset < 0 || node.type() == pugi::node_document
             ? 0
             : source_->lines.lineAt(static_cast<std::size_t>(offset));
}

} // namespace kelmar::xml
