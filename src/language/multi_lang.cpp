// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "language/multi_lang.h"

#include "base/conversions.h"
#include "base/failure.h"
#include "base/text.h"
#include "platform/machine.h"
#include "platform/site_settings.h"

namespace kelmar {

namespace {

// Element that the key names, or a null node for a key that is no path.
std::string softwarePath(const std::string& key) {
  return "/software/" + key;
}

} // namespace

CMultiLangEx::CMultiLangEx(platform::SiteSettings* site, platform::Fetch* fetch)
    : site_(site), fetch_(fetch) {}

void CMultiLangEx::setLangFileSubDir(std::string_view folder) {
  folder = trimBlanks(folder);
  if (folder.empty()) {
    langFileSubDir_ = "/lang/";
    return;
  }
  langFileSubDir_ = folder;
  if (!langFileSubDir_.starts_with('/')) langFileSubDir_.insert(0, 1, '/');
  if (!langFileSubDir_.ends_with('/')) langFileSubDir_ += '/';
}

std::unique_ptr<xml::Document> CMultiLangEx::loaded(const std::string& path) const {
  auto document = std::make_unique<xml::Document>();
  return document->load(path, fetch_) ? std::move(document) : nullptr;
}

// Makes the language file in `folder` the current one, if it can be read.
bool CMultiLangEx::take(const std::string& folder) {
  auto document = loaded(folder + langFileName);
  if (!document) return false;
  document_ = std::move(document);
  foundIn_ = folder;
  return true;
}

void CMultiLangEx::initLanguage(const std::string& basePath, const std::string& languageCode,
                                const std::string& subDir, const std::string& fileName) {
  setLangFileSubDir(subDir);
  langFileName = fileName;
  language = languageCode.empty() ? "en" : languageCode;

  const std::string dataRoot =
      site_ ? site_->paths().NormalizeFolder(site_->paths().GetDataRootFolder()) : std::string();
  const bool noDataRoot = dataRoot.empty();
  if (noDataRoot || !take(dataRoot + "Omnikor" + langFileSubDir_)) {
    if (!take(basePath + langFileSubDir_)) {
      document_.reset();
      foundIn_.clear();
      throw Failure(1, "initLanguage",
                    "Unable to read language file : " + basePath + langFileSubDir_ + langFileName);
    }
  }

  // Without a data root of its own this machine takes the addressing file from the intranet.
  const std::string name =
      getParameterDefault("SORVANEAddressing.xml", "Parameters/sorvaneAddressingFile");
  const std::string folder =
      site_ && noDataRoot ? site_->IntranetServerRoot() + "/Omnikor/" : basePath + "/";
  addressing_ = loaded(folder + name);
  if (!addressing_) addressing_ = std::make_unique<xml::Document>();
}

xml::Node CMultiLangEx::inLanguage(xml::Node node, const std::string& path) const {
  return xml::selectSingleNode(node, path + "[@xml:lang=" + xml::xpathLiteral(language) + "]")
      .node();
}

xml::Node CMultiLangEx::FindLanguageNode(xml::Node node, const std::string& path) const {
  if (const xml::Node found = inLanguage(node, path)) return found;
  return xml::selectSingleNode(node, path).node();
}

std::string CMultiLangEx::getMultilangElementText(xml::Node node, const std::string& name) const {
  xml::Node found = xml::selectSingleNode(
                        node, name + "[@xml:lang=" + xml::xpathLiteral(lowerCase(language)) + "]")
                        .node();
  if (!found) found = xml::selectSingleNode(node, name).node();
  return found ? xml::textOf(found) : std::string();
}

std::optional<std::string> CMultiLangEx::find(const std::string& key,
                                              const char* fallbackCondition) const {
  if (!document_) return std::nullopt;
  xml::Node found = inLanguage(document_->node(), softwarePath(key));
  if (!found) found = document_->selectSingleNode(softwarePath(key) + fallbackCondition).node();
  return found ? std::optional(xml::textOf(found)) : std::nullopt;
}

namespace {

// One after the other, so that a parameter may hold the place of a later one.
std::string filled(std::string text, const std::array<std::string_view, 6>& parameters) {
  char place[] = "{0}";
  for (const std::string_view parameter : parameters) {
    if (text.find(place) != std::string::npos) text = replaceAll(text, place, parameter);
    ++place[1];
  }
  return CMultiLangEx::ExpandCodes(text);
}

} // namespace

std::string CMultiLangEx::getMultilangMessage(const std::string& key, std::string_view p0,
                                              std::string_view p1, std::string_view p2,
                                              std::string_view p3, std::string_view p4,
                                              std::string_view p5) const {
  const Parameters parameters = {p0, p1, p2, p3, p4, p5};
  if (const auto text = find(key, "")) return filled(*text, parameters);
  std::string joined = key;
  for (const std::string_view parameter : parameters) {
    joined += ' ';
    joined += parameter;
  }
  return joined;
}

std::string CMultiLangEx::message(const std::string& defaultText, const std::string& key,
                                  const Parameters& parameters) const {
  return filled(find(key, "[not(@xml:lang)]").value_or(defaultText), parameters);
}

std::string CMultiLangEx::parameter(const std::string& defaultText, const std::string& key) const {
  const xml::Node found =
      document_ ? document_->selectSingleNode(softwarePath(key)).node() : xml::Node();
  return found ? xml::textOf(found) : defaultText;
}

std::string CMultiLangEx::ExpandCodes(std::string_view text) {
  static constexpr std::array<std::pair<const char*, const char*>, 7> codes = {{
      {"{cr}", "\r"},
      {"{lf}", "\n"},
      {"{crlf}", "\r\n"},
      {"{tab}", "\t"},
      {"{\\n}", "\r\n"},
      {"{\\t}", "\t"},
      {"{br}", "<br/>"},
  }};
  std::string expanded(text);
  if (expanded.find('{') == std::string::npos) return expanded;
  for (const auto& [code, meaning] : codes)
    expanded = replaceAll(expanded, code, meaning);
  return expanded;
}

void CMultiLangEx::TranslateControl(const Controls& controls, const std::string& key) const {
  if (!document_) return;
  const xml::Node root = document_->selectSingleNode(softwarePath(key)).node();
  if (!root) return;
  for (language::Control* control : controls) {
    try {
      for (const language::ControlText& place : language::controlTexts(*control)) {
        const xml::Node found = FindLanguageNode(root, place.path);
        if (!found) continue;
        const std::string text = ExpandCodes(xml::textOf(found));
        if (place.property == language::ControlProperty::FontSize)
          control->applyFontSize(static_cast<float>(toDouble(text)));
        else
          control->apply(place.property, text, place.where);
      }
    } catch (const Failure&) {
      // The next control may do better.
    }
  }
}

void CMultiLangEx::TranslateControlEx(const std::string& fileName, const Controls& controls,
                                      const std::string& key) {
  auto other = loaded(fileName);
  if (!other) return;
  document_.swap(other);
  TranslateControl(controls, key);
  document_.swap(other);
}

bool CMultiLangEx::loadXmlLanguageFile(const std::string& fileName) {
  document_ = loaded(fileName);
  foundIn_ = document_ ? fileName : std::string();
  return document_ != nullptr;
}

std::vector<xml::Node> CMultiLangEx::languagesSupported(const std::string& fileName) {
  if (!fileName.empty() && !loadXmlLanguageFile(fileName)) return {};
  if (!document_) return {};
  return document_->selectNodes("/software/availableLanguages/item");
}

int CMultiLangEx::getLanguagesSupported(int index, std::string& caption, std::string& key) const {
  caption.clear();
  key.clear();
  if (!document_) return 0;
  const auto items = document_->selectNodes("/software/availableLanguages/item");
  const int count = static_cast<int>(items.size());
  if (index >= 0 && index < count) {
    const xml::Node item = items[static_cast<std::size_t>(index)];
    caption = xml::textOf(item.child("caption"));
    key = xml::textOf(item.child("key"));
  }
  return count;
}

void CMultiLangEx::storeLanguageToRegistry(const std::string& languageCode) {
  if (!site_) return;
  try {
    site_->storeLanguage(languageCode.empty() ? language : languageCode);
  } catch (const Failure&) {
    // The choice then holds for this session only.
  }
}

namespace language {

namespace {
CMultiLangEx* current = nullptr;
}

CMultiLangEx& global() {
  static CMultiLangEx withoutFile;
  return current ? *current : withoutFile;
}

void setGlobal(CMultiLangEx* service) {
  current = service;
}

} // namespace language
} // namespace kelmar
