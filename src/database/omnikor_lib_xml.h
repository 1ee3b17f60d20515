// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/catalogue_items.h"
#include "database/load_context.h"
#include "database/load_report.h"
#include "database/target_item.h"
#include "platform/machine.h"
#include "platform/person.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelmar {

inline constexpr char ecuSchemaUri[] = "http://www.omnikor.example/2002/ECU";
inline constexpr char screenSchemaUri[] = "http://www.omnikor.example/2002/screens";
inline constexpr char previewStyleSheetUri[] =
    "http://www.omnikor.example/Omnikor/ZEMECUPreview.xsl";

/// What the database needs of the machine. All may be none: then http addresses fail, the question
/// about files of the sibling tool counts as cancelled, and the machine's clock is used.
struct DatabaseMachine {
  platform::Fetch* fetch = nullptr;
  platform::Person* person = nullptr;
  const platform::Clock* clock = nullptr;
};

/// Root of the database: the catalogues, the one open ECU, and its file as a whole.
class OmnikorLibXml {
 public:
  using Machine = DatabaseMachine;

  /// Reads the built-in catalogue in the language `lang`. Raises 1 when that fails.
  explicit OmnikorLibXml(Machine machine = {}, const std::string& lang = "en");
  OmnikorLibXml(const OmnikorLibXml&) = delete;
  OmnikorLibXml& operator=(const OmnikorLibXml&) = delete;
  ~OmnikorLibXml();

  std::shared_ptr<TargetItem> ActiveTarget; ///< none until NewTarget or a load
  std::string fileName;                     ///< kept for the caller
  std::shared_ptr<ProtocolItems> protocols;
  std::shared_ptr<PanneItems> Pannes;
  std::shared_ptr<TypeOrganeItems> typeOrganes;
  std::shared_ptr<FunctionItems> functions; ///< none until a load needs it
  std::string xmlEcuSchema = ecuSchemaUri;
  std::string& xmlns = xmlEcuSchema; ///< a second name of the same value
  std::string xmlScreenSchema = screenSchemaUri;
  std::string xmlStyleSheet = previewStyleSheetUri; ///< empty suppresses the instruction
  std::string xmlEncoding = "UTF-8";
  std::string lang;

  /// `LibMessage(source, message)`: notes for a log.
  std::function<void(const std::string&, const std::string&)> LibMessage;
  void RaiseLibMessage(const std::string& source, const std::string& message) const;

  /// Major, minor, 0 and revision, joined by points.
  static std::string Version();

  /// Loads the catalogues from a file instead of the built-in text. Raises 1.
  void ReadGlobalParameters(const std::string& fileName);
  void ClearTarget();
  TargetItem* NewTarget();

  /// Loads one ECU. Raises 1 or 2, or the error that the model left pending; the database then
  /// holds an empty or partly filled target that ExportUceToXml refuses. `report()` tells what was
  /// read but not kept, after a failure too.
  void ImportUceFromXml(const std::string& url);

  /// Saves the ECU and gives the bytes that the file was meant to hold. Raises when there is no
  /// target, when its load failed, or for an item that cannot be written; nothing is written then.
  /// A failure of the writing itself is told by LibMessage alone.
  std::string ExportUceToXml(const std::string& fileName);
  /// The bytes alone. Raises as above.
  std::string ecuFileBytes();
  /// The writing alone. False after a failure, told as above; the old file is then whole. A file
  /// that does not read back as these bytes is a failure too.
  bool writeEcuFile(const std::string& fileName, std::string_view bytes) const;

  /// Does nothing; the interface is kept.
  void ExportParametersToXml(const std::string&, const std::string&) {}

  /// The open file came from the sibling tool and must not be saved.
  bool loadedFromQvr() const { return loadedFromQvr_; }
  /// The last load ended in a failure.
  bool loadFailed() const { return loadFailed_; }
  const LoadReport& report() const { return report_; }
  /// The report counts for the open file until it is saved.
  void forgetReport() { report_.clear(); }

  LoadContext& loading() { return context_; }

 private:
  void readCatalogue(const xml::Document& document);
  void askAboutSiblingTool();
  std::shared_ptr<TargetItem> makeTarget();
  void readTarget(xml::Document& document, TargetItem& target);

  Machine machine_;
  LoadContext context_;
  LoadReport report_;
  /// Messages that wait for the end of a load, while there is one.
  std::vector<std::pair<std::string, std::string>>* heldMessages_ = nullptr;
  /// Bytes that the next save will come to, about.
  std::size_t expectedSize_ = 0;
  bool loadedFromQvr_ = false;
  bool loadFailed_ = false;
};

/// The text of the child `tag` in the language, or else of the first one, or empty.
std::string GetLocalizedName(xml::Node row, const char* tag, const std::string& lang);

} // namespace kelmar
