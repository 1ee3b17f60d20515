// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml/judge.h"

#include <cstring>

namespace kelmar::xml {

Judge::Judge(const Limits& limits, std::size_t size) : ExpatRun(limits, size) {
  XML_SetElementHandler(
      parser(),
      [](void* self, const XML_Char*, const XML_Char**) {
        static_cast<Judge*>(self)->enterElement();
      },
      [](void* self, const XML_Char*) { static_cast<Judge*>(self)->leaveElement(); });
  XML_SetStartDoctypeDeclHandler(parser(),
                                 [](void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                    int) { static_cast<Judge*>(self)->demandEvents(); });
  XML_SetProcessingInstructionHandler(parser(),
                                      [](void* self, const XML_Char*, const XML_Char* data) {
                                        if (std::strchr(data, '\n'))
                                          static_cast<Judge*>(self)->demandEvents();
                                      });
}

void Judge::demandEvents() {
  needsEvents_ = true;
  // The code only ends the run; whoever asks looks at needsEvents first.
  stop(XML_ERROR_ABORTED, "the document has a DTD");
}

} // namespace kelmar::xml
