// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Without it the header hides the limits of entities, which the library has.
#define XML_DTD

#include "xml/expat_run.h"

#include <algorithm>
#include <new>

namespace kelmar::xml {

namespace {

// Larger pieces do not make Expat faster, and it keeps copies of them.
constexpr std::size_t pieceSize = 1u << 16;

} // namespace

ExpatRun::ExpatRun(const Limits& limits, std::size_t size)
    // The texts are UTF-8 by now, whatever they declare.
    : limits_(limits), size_(size), parser_(XML_ParserCreate("UTF-8")) {
  if (!parser_) throw std::bad_alloc();
  XML_SetUserData(parser_, this);
  // Read bytes beyond file plus bound can only come from entities: then any growth is too much.
  XML_SetBillionLaughsAttackProtectionActivationThreshold(parser_, size + limits.entityBytes);
  XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser_, 1.0f);
  // Parameter entities of the internal DTD are expanded; what would have to be read from elsewhere
  // comes to refuseExternal. Left out silently, it would change what the document says.
  XML_SetParamEntityParsing(parser_, XML_PARAM_ENTITY_PARSING_ALWAYS);
  XML_SetExternalEntityRefHandler(parser_, refuseExternal);
  XML_SetExternalEntityRefHandlerArg(parser_, this);
  XML_SetSkippedEntityHandler(parser_, refuseSkipped);
  XML_SetEntityDeclHandler(parser_, countEntity);
}

ExpatRun::~ExpatRun() {
  XML_ParserFree(parser_);
}

void ExpatRun::stop(int code, const std::string& reason) {
  if (error_.errorCode != 0) return;
  error_ = {code, reason, XML_GetCurrentLineNumber(parser_),
            XML_GetCurrentColumnNumber(parser_) + 1};
  XML_StopParser(parser_, XML_FALSE);
}

void ExpatRun::refuseDepth() {
  stop(NestedTooDeep, "elements are nested deeper than " + std::to_string(limits_.depth));
}

int XMLCALL ExpatRun::refuseExternal(XML_Parser parser, const XML_Char* context, const XML_Char*,
                                     const XML_Char* systemId, const XML_Char*) {
  // The first argument is what XML_SetExternalEntityRefHandlerArg was given.
  auto* self = reinterpret_cast<ExpatRun*>(parser);
  const std::string what = context ? "external entity" : "external DTD";
  self->stop(ExternalEntity, what + " '" + (systemId ? systemId : "") + "' is not read");
  return XML_STATUS_ERROR;
}

void XMLCALL ExpatRun::refuseSkipped(void* self, const XML_Char* name, int) {
  static_cast<ExpatRun*>(self)->stop(ExternalEntity,
                                     "entity '" + std::string(name) + "' is not known");
}

// A chain of entities costs the stack of this program a step for each.
void XMLCALL ExpatRun::countEntity(void* self, const XML_Char*, int, const XML_Char*, int,
                                   const XML_Char*, const XML_Char*, const XML_Char*,
                                   const XML_Char*) {
  auto* run = static_cast<ExpatRun*>(self);
  if (++run->entities_ > run->limits_.entities)
    run->stop(EntitiesTooLarge,
              "more than " + std::to_string(run->limits_.entities) + " entities are declared");
}

bool ExpatRun::conclude(XML_Status status) {
  if (error_.errorCode != 0) return false;
  if (status == XML_STATUS_OK) return true;
  const XML_Error code = XML_GetErrorCode(parser_);
  if (code == XML_ERROR_AMPLIFICATION_LIMIT_BREACH) {
    stop(EntitiesTooLarge,
         "entities expand to more than " + std::to_string(limits_.entityBytes) + " bytes");
  } else if (code == XML_ERROR_NO_MEMORY) {
    stop(OutOfMemory, "out of memory");
  } else {
    const XML_LChar* text = XML_ErrorString(code);
    stop(code, text ? text : "not well-formed");
  }
  return false;
}

bool ExpatRun::run(std::string_view text) {
  return run([&text](char* to, std::size_t size) {
    const std::size_t taken = std::min(size, text.size());
    text.copy(to, taken);
    text.remove_prefix(taken);
    return taken;
  });
}

bool ExpatRun::run(const Reader& reader) {
  for (;;) {
    void* buffer = XML_GetBuffer(parser_, static_cast<int>(pieceSize));
    if (!buffer) return conclude(XML_STATUS_ERROR);
    const std::size_t got = reader(static_cast<char*>(buffer), pieceSize);
    const bool last = got < pieceSize;
    const XML_Status status = XML_ParseBuffer(parser_, static_cast<int>(got), last);
    if (status != XML_STATUS_OK || error_.errorCode != 0 || last) return conclude(status);
  }
}

} // namespace kelmar::xml
