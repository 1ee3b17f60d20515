// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/auto_ident_entry.h"

#include "base/text.h"
#include "language/multi_lang.h"

namespace kelmar {

namespace {

constexpr std::size_t longestUdsSupplier = 120, longestUdsText = 64;
// The message asks for 6 characters although 3 will do, on purpose.
constexpr std::size_t shortestSupplier = 3, longestSupplier = 6;

std::string diagText(std::int32_t number) {
  std::string digits = hexText(number);
  if (digits.size() < 2) digits.insert(0, "0");
  return std::to_string(number) + " ($" + digits + ")";
}

BadEntry refusal(BadEntry::Field field, const char* key, const std::string& text) {
  return {field,
          {key,
           language::global().getMultilangMessageDefault("User error",
                                                         "AUTOIDENT/MSG/CheckUserInput/title"),
           text, platform::Buttons::Ok, platform::Icon::Exclamation}};
}

std::optional<BadEntry> checkUds(const AutoIdentEntry& entry) {
  const CMultiLangEx& texts = language::global();
  const std::size_t supplier = characterCount(entry.ValCodeFour);
  if (supplier < 1 || supplier > longestUdsSupplier) {
    constexpr char udsSupplierKey[] = "AUTOIDENT/MSG/CheckUserInput/UDS/badSupplierCode/text";
    return refusal(BadEntry::Field::ValCodeFour, udsSupplierKey,
                   texts.getMultilangMessageDefault("Bad supplier name : 1 up to {0} characters.",
                                                    udsSupplierKey,
                                                    std::to_string(longestUdsSupplier)));
  }
  if (characterCount(entry.ValLogiciel) > longestUdsText) {
    constexpr char udsSoftwareKey[] = "AUTOIDENT/MSG/CheckUserInput/UDS/badSoftware/text";
    return refusal(
        BadEntry::Field::ValLogiciel, udsSoftwareKey,
        texts.getMultilangMessageDefault("Bad software name: {0} ASCII characters required",
                                         udsSoftwareKey, std::to_string(longestUdsText)));
  }
  if (characterCount(entry.ValVersion) > longestUdsText) {
    constexpr char udsVersionKey[] = "AUTOIDENT/MSG/CheckUserInput/UDS/badSoftwareVersion/text";
    return refusal(
        BadEntry::Field::ValVersion, udsVersionKey,
        texts.getMultilangMessageDefault("Bad software version: {0} ASCII characters required",
                                         udsVersionKey, std::to_string(longestUdsText)));
  }
  return std::nullopt;
}

std::optional<BadEntry> checkFixedLengths(const AutoIdentEntry& entry) {
  const CMultiLangEx& texts = language::global();
  const std::size_t supplier = characterCount(entry.ValCodeFour);
  if (supplier < shortestSupplier || supplier > longestSupplier) {
    constexpr char supplierKey[] = "AUTOIDENT/MSG/CheckUserInput/badSupplierCode/text";
    return refusal(
        BadEntry::Field::ValCodeFour, supplierKey,
        texts.getMultilangMessageDefault("Bad Supplier code : 6 characters required", supplierKey));
  }
  if (!isFourHexadecimalDigits(entry.ValLogiciel)) {
    constexpr char softwareKey[] = "AUTOIDENT/MSG/CheckUserInput/badSoftware/text";
    return refusal(BadEntry::Field::ValLogiciel, softwareKey,
                   texts.getMultilangMessageDefault(
                       "Bad software name: 4 hexadecimal characters required", softwareKey));
  }
  if (!isFourHexadecimalDigits(entry.ValVersion)) {
    constexpr char versionKey[] = "AUTOIDENT/MSG/CheckUserInput/badSoftwareVersion/text";
    return refusal(BadEntry::Field::ValVersion, versionKey,
                   texts.getMultilangMessageDefault(
                       "Bad software version: 4 hexadecimal characters required", versionKey));
  }
  return std::nullopt;
}

} // namespace

AutoIdentEntry entryOf(const AutoIdentItem& item) {
  return {item.DiagNumber, item.SupplierCode, item.Soft, item.Version};
}

void applyEntry(const AutoIdentEntry& entry, AutoIdentItem& item) {
  item.DiagNumber = entry.ValIndiceDiag;
  item.SupplierCode = entry.ValCodeFour;
  item.Soft = entry.ValLogiciel;
  item.Version = entry.ValVersion;
}

std::string autoIdentCell(const AutoIdentItem& item, int column) {
  switch (column) {
  case 0:
    return diagText(item.DiagNumber);
  case 1:
    return item.SupplierCode;
  case 2:
    return item.Soft;
  default:
    return item.Version;
  }
}

bool isFourHexadecimalDigits(std::string_view text) {
  return text.size() == 4 && text.find_first_not_of("0123456789ABCDEFabcdef") == text.npos;
}

std::optional<BadEntry> CheckUserInput(const AutoIdentEntry& entry, bool uds) {
  return uds ? checkUds(entry) : checkFixedLengths(entry);
}

} // namespace kelmar
