// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/rules/requests/request_fields.h"

#include "base/text.h"
#include "language/multi_lang.h"

namespace kelmar {

namespace {

std::string hexOf(const std::shared_ptr<FrameBuffer>& buffer) {
  return buffer ? buffer->HexText() : std::string();
}

bool write(const std::string& text, std::shared_ptr<FrameBuffer>& buffer) {
  if (!isFrameText(text)) return false;
  if (!buffer) buffer = std::make_shared<FrameBuffer>();
  buffer->setHexText(text);
  return true;
}

BadFrame badFrame(BadFrame::Field field, const char* defaultText, const char* key) {
  return {field, Failure(1, "GetRequestFromScreen",
                         language::global().getMultilangMessageDefault(defaultText, key))};
}

} // namespace

RequestFields fieldsOf(const RequestItem& request) {
  return {.Commentaire = request.Commentaire,
          .AccesApresVente = request.AccesApresVente,
          .AccesConstructeur = request.AccesConstructeur,
          .AccesEtudes = request.AccesEtudes,
          .AccesTous = request.AccesTous,
          .AccesUsine = request.AccesUsine,
          .DossierMaintenabilite = request.DossierMaintenabilite,
          .LgVariable = request.LgVariable,
          .ManuelSend = request.ManuelSend,
          .LengthDatas = request.LengthDatas,
          .ShiftBytesCount = request.ShiftBytesCount,
          .RequestBytes = hexOf(request.RequestBytes),
          .ReplyBytes = hexOf(request.ReplyBytes)};
}

std::optional<BadFrame> applyFields(const RequestFields& fields, RequestItem& request) {
  request.Commentaire = fields.Commentaire;
  request.AccesApresVente = fields.AccesApresVente;
  request.AccesConstructeur = fields.AccesConstructeur;
  request.AccesEtudes = fields.AccesEtudes;
  request.AccesTous = fields.AccesTous;
  request.AccesUsine = fields.AccesUsine;
  request.DossierMaintenabilite = fields.DossierMaintenabilite;
  request.LengthDatas = fields.LengthDatas;
  request.LgVariable = fields.LgVariable;
  request.ManuelSend = fields.ManuelSend;
  request.ShiftBytesCount = fields.ShiftBytesCount;
  if (!write(fields.RequestBytes, request.RequestBytes))
    return badFrame(BadFrame::Field::RequestBytes, "Bad request bytes",
                    "REQUESTS/MSG/GetRequestFromScreen/badRequestBytes/text");
  if (!write(fields.ReplyBytes, request.ReplyBytes))
    return badFrame(BadFrame::Field::ReplyBytes, "Bad reply bytes",
                    "REQUESTS/MSG/GetRequestFromScreen/badReplyBytes/text");
  return std::nullopt;
}

bool isFrameText(const std::string& text) {
  try {
    FrameBuffer scratch;
    scratch.setHexText(text);
    return true;
  } catch (const Failure&) {
    return false;
  }
}

std::string requestLengthText(const std::string& text) {
  const std::size_t bytes = characterCount(text) / 2;
  const std::string number = std::to_string(bytes);
  const CMultiLangEx& texts = language::global();
  return bytes < 2
             ? texts.getMultilangMessageDefault("({0} byte)", "REQUESTS/MSG/length/one", number)
             : texts.getMultilangMessageDefault("({0} bytes)", "REQUESTS/MSG/length/more", number);
}

} // namespace kelmar
