// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_expat_parse FILE...   parses each file with Expat and empty handlers: the least that a
// reader of XML does. "-" takes the names from standard input, one a line.

#include <cstdio>
#include <cstdlib>
#include <expat.h>
#include <fcntl.h>
#include <iostream>
#include <string>
#include <unistd.h>

namespace {

constexpr int pieceSize = 1 << 16;

void XMLCALL onStart(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL onEnd(void*, const XML_Char*) {}
void XMLCALL onText(void*, const XML_Char*, int) {}

bool parse(const char* path) {
  const int file = ::open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) {
    std::perror(path);
    return false;
  }
  XML_Parser parser = XML_ParserCreate(nullptr);
  XML_SetElementHandler(parser, onStart, onEnd);
  XML_SetCharacterDataHandler(parser, onText);
  bool isWell = true;
  for (ssize_t got = 1; isWell && got > 0;) {
    void* const piece = XML_GetBuffer(parser, pieceSize);
    if (!piece) std::abort();
    got = ::read(file, piece, pieceSize);
    isWell =
        got >= 0 && XML_ParseBuffer(parser, static_cast<int>(got), got == 0) != XML_STATUS_ERROR;
  }
  if (!isWell) std::fprintf(stderr, "%s: %s\n", path, XML_ErrorString(XML_GetErrorCode(parser)));
  XML_ParserFree(parser);
  ::close(file);
  return isWell;
}

} // namespace

int main(int count, char** arguments) {
  bool isWell = count > 1;
  for (int i = 1; i < count; ++i) {
    if (std::string(arguments[i]) != "-") {
      isWell = parse(arguments[i]) && isWell;
      continue;
    }
    for (std::string name; std::getline(std::cin, name);)
      isWell = parse(name.c_str()) && isWell;
  }
  return isWell ? 0 : 1;
}
