// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "language/control.h"
#include "xml/document.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmar::platform {
class SiteSettings;
}

namespace kelmar {

/// One language file, and the texts of its keys in one language. Every text that a page shows comes
/// from here, with a default in the code, so the program speaks English without any file.
///
/// A key is the path of an element below the root `software`, such as "SELECTOR/MSG/Save/text". Its
/// leaf may stand there several times, told apart by `xml:lang`; one without it fits any language.
///
/// Nothing here raises but initLanguage: a key that is not there, a file that cannot be read or a
/// text that does not convert gives the fallback.
class CMultiLangEx {
 public:
  /// Both may be absent and must outlive this. `site` gives the data root folder and keeps the
  /// language; `fetch` loads language files from "http:" addresses.
  explicit CMultiLangEx(platform::SiteSettings* site = nullptr, platform::Fetch* fetch = nullptr);

  /// The language code, such as "fr".
  std::string language;
  std::string langFileName;

  const std::string& langFileSubDir() const { return langFileSubDir_; }
  /// Trimmed, with "/" at both ends; an empty value gives "/lang/".
  void setLangFileSubDir(std::string_view folder);

  /// Where the loaded file was found, followed by langFileName.
  std::string langFileNameFull() const { return foundIn_ + langFileName; }
  /// The language file; null when none is loaded.
  const xml::Document* xmlDoc() const { return document_.get(); }
  /// The addressing file beside the language files, loaded for those who ask; empty when it could
  /// not be read, null before initLanguage.
  const xml::Document* addressingDocument() const { return addressing_.get(); }

  /// Loads the language file, first below "Omnikor" in the data root folder, then below `basePath`
  /// (a local folder, or a "file:" or "http:" address). An empty `language` means "en". Raises
  /// Failure 1 when neither can be read; the service is then without a file.
  void initLanguage(const std::string& basePath, const std::string& languageCode,
                    const std::string& subDir, const std::string& fileName);

  /// Text of the child `name` in the current language (in lower case), else of any child `name`,
  /// else empty.
  std::string getMultilangElementText(xml::Node node, const std::string& name) const;

  /// Text of the key in the current language, else of its first element whatever the language, else
  /// key and parameters joined by blanks.
  std::string getMultilangMessage(const std::string& key, std::string_view p0 = {},
                                  std::string_view p1 = {}, std::string_view p2 = {},
                                  std::string_view p3 = {}, std::string_view p4 = {},
                                  std::string_view p5 = {}) const;

  /// Text of the key in the current language, else of the element without language, else the
  /// default; with "{0}" to "{5}" replaced by the parameters and the codes expanded, as a value of
  /// the type of the default. What does not convert gives the default.
  std::string getMultilangMessageDefault(const std::string& defaultText, const std::string& key,
                                         std::string_view p0 = {}, std::string_view p1 = {},
                                         std::string_view p2 = {}, std::string_view p3 = {},
                                         std::string_view p4 = {}, std::string_view p5 = {}) const;
  // Without this one, a text in quotes would be taken for a Boolean.
  std::string getMultilangMessageDefault(const char* defaultText, const std::string& key,
                                         std::string_view p0 = {}, std::string_view p1 = {},
                                         std::string_view p2 = {}, std::string_view p3 = {},
                                         std::string_view p4 = {}, std::string_view p5 = {}) const;
  std::int32_t getMultilangMessageDefault(std::int32_t defaultValue, const std::string& key,
                                          std::string_view p0 = {}, std::string_view p1 = {},
                                          std::string_view p2 = {}, std::string_view p3 = {},
                                          std::string_view p4 = {}, std::string_view p5 = {}) const;
  std::int16_t getMultilangMessageDefault(std::int16_t defaultValue, const std::string& key,
                                          std::string_view p0 = {}, std::string_view p1 = {},
                                          std::string_view p2 = {}, std::string_view p3 = {},
                                          std::string_view p4 = {}, std::string_view p5 = {}) const;
  double getMultilangMessageDefault(double defaultValue, const std::string& key,
                                    std::string_view p0 = {}, std::string_view p1 = {},
                                    std::string_view p2 = {}, std::string_view p3 = {},
                                    std::string_view p4 = {}, std::string_view p5 = {}) const;
  /// "false", "faux" and "0" are false, anything else is true.
  bool getMultilangMessageDefault(bool defaultValue, const std::string& key,
                                  std::string_view p0 = {}, std::string_view p1 = {},
                                  std::string_view p2 = {}, std::string_view p3 = {},
                                  std::string_view p4 = {}, std::string_view p5 = {}) const;

  /// A setting of the language file, whatever its language, as a value of the type of the default.
  std::string getParameterDefault(const std::string& defaultText, const std::string& key) const;
  std::string getParameterDefault(const char* defaultText, const std::string& key) const;
  std::int32_t getParameterDefault(std::int32_t defaultValue, const std::string& key) const;
  std::int16_t getParameterDefault(std::int16_t defaultValue, const std::string& key) const;
  double getParameterDefault(double defaultValue, const std::string& key) const;
  bool getParameterDefault(bool defaultValue, const std::string& key) const;

  using Controls = std::vector<language::Control*>;
  /// Gives the controls their texts below `key`. What has no text keeps what it shows.
  void TranslateControl(const Controls& controls, const std::string& key) const;
  /// The same from another language file, which is dropped afterwards. Without effect when it
  /// cannot be loaded.
  void TranslateControlEx(const std::string& fileName, const Controls& controls,
                          const std::string& key);

  /// Replaces the language file. False when it cannot be loaded; there is then none.
  bool loadXmlLanguageFile(const std::string& fileName);

  /// The `item` elements of /software/availableLanguages; `fileName`, when not empty, becomes the
  /// language file first.
  std::vector<xml::Node> languagesSupported(const std::string& fileName = {});
  /// Number of languages. `caption` and `key` receive those of the one at `index`, counted from 0;
  /// empty texts when there is no such language.
  int getLanguagesSupported(int index, std::string& caption, std::string& key) const;

  /// Keeps the choice of language for the next start; an empty code means the current one.
  void storeLanguageToRegistry(const std::string& languageCode = {});

  /// The element of `path` in the current language, else the first of any; null when none.
  xml::Node FindLanguageNode(xml::Node node, const std::string& path) const;
  /// "{cr}", "{lf}", "{crlf}", "{tab}", "{\n}", "{\t}" and "{br}" become what they name.
  static std::string ExpandCodes(std::string_view text);

 private:
  using Parameters = std::array<std::string_view, 6>;
  std::unique_ptr<xml::Document> loaded(const std::string& path) const;
  bool take(const std::string& folder);
  xml::Node inLanguage(xml::Node node, const std::string& path) const;
  /// Text of the key, if there is one; `fallback` is the path that fits when the language has none.
  std::optional<std::string> find(const std::string& key, const char* fallbackCondition) const;
  std::string message(const std::string& defaultText, const std::string& key,
                      const Parameters& parameters) const;
  std::string parameter(const std::string& defaultText, const std::string& key) const;

  platform::SiteSettings* site_;
  platform::Fetch* fetch_;
  std::string langFileSubDir_ = "/lang/";
  std::string foundIn_;
  std::unique_ptr<xml::Document> document_;
  std::unique_ptr<xml::Document> addressing_;
};

namespace language {

/// The language service of the pages. Before the frame has set one it is without a file and gives
/// the defaults of the code.
CMultiLangEx& global();
/// `service` must live until another, or null, is set.
void setGlobal(CMultiLangEx* service);

} // namespace language
} // namespace kelmar
