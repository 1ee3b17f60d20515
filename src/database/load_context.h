// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/load_report.h"
#include "database/pending_error.h"
#include "xml/document.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kelmar {

class OrganeItem;
class RequestItem;
class DataPositionItem;
class TargetItem;

/// The state of one load: the pending error, the report, and, while a whole file is read, the
/// indexes that keep the load linear. Outside a whole-file load (clipboard fragments) the same
/// questions are answered by walking the model, with the same answers.
class LoadContext {
 public:
  LoadContext();
  ~LoadContext();

  PendingError pending;

  /// Notes an item that is not kept. `element` gives path and, once the load ends, the line.
  void notKept(const char* kind, std::string_view name, xml::Node element, std::string reason);
  LoadReport takeReport() { return std::move(report_); }
  const LoadReport& report() const { return report_; }

  /// The document is read once and for all: indexes are built as reading goes on, and sections that
  /// have been read are given back at once.
  void beginWholeFile(xml::Document& document);
  void endWholeFile();

  /// A member that has been read and is not looked at again.
  void release(xml::Node element);

  // Questions about what has been read so far.

  /// First position of that data with `reference` set, in request order, or none.
  DataPositionItem* referencePosition(const TargetItem& target, std::string_view dataName);
  /// The position of that data in that request, its name compared in lower case.
  DataPositionItem* positionInRequest(const TargetItem& target, std::string_view requestName,
                                      std::string_view dataName);
  /// True when a device of the ECU, or what has been read of this one so far, holds the data as
  /// device datum or in a test.
  bool isTakenByDevice(const OrganeItem& device, std::string_view dataName);
  /// The same for the OBD code of a test.
  bool isObdTaken(const OrganeItem& device, std::int32_t obd);
  /// A request that has become a member of its ECU.
  void noteReferences(const RequestItem& request);
  /// The text must stay where it is while the file is read.
  void noteDeviceData(std::string_view dataName);
  void noteFlag(std::string_view dataName);
  void noteObd(std::int32_t obd);

 private:
  struct WholeFile;
  std::unique_ptr<WholeFile> file_;
  LoadReport report_;
};

/// A whole-file load for as long as it lives.
class WholeFileLoad {
 public:
  WholeFileLoad(LoadContext& load, xml::Document& document) : load_(load) {
    load_.beginWholeFile(document);
  }
  WholeFileLoad(const WholeFileLoad&) = delete;
  WholeFileLoad& operator=(const WholeFileLoad&) = delete;
  ~WholeFileLoad() { load_.endWholeFile(); }

 private:
  LoadContext& load_;
};

// Tolerant statements. Each reads into the field, or leaves the field as it is and sets the slot:
// MissingObject when there is nothing to read, TypeMismatch or NumericOverflow for a value that
// does not convert, which goes into the report too. They answer whether the field was written.

bool readText(LoadContext& load, xml::Node element, const char* attribute, std::string& field);
bool readNumber(LoadContext& load, xml::Node element, const char* attribute, std::int32_t& field);
bool readBoolean(LoadContext& load, xml::Node element, const char* attribute, bool& field);
bool readReal(LoadContext& load, xml::Node element, const char* attribute, double& field);
/// The text of a child element.
bool readChildText(LoadContext& load, xml::Node element, const char* child, std::string& field);
/// The same, converted.
bool readChildNumber(LoadContext& load, xml::Node element, const char* child, std::int32_t& field);

/// The text of the child element `child`, or else of the first XML comment, with line feeds widened
/// and blanks trimmed; older files keep their comments so. Empty when there is neither.
std::string readComment(xml::Node element, const char* child, bool trimXmlComment = true);

/// The start of a text for the report, whole characters.
std::string shortened(std::string_view text);

/// The name without its prefix.
std::string_view baseName(xml::Node node);

/// Where an element stands, by the names of the items above it.
std::string pathOf(xml::Node element);

} // namespace kelmar
