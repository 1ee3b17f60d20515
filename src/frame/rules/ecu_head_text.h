// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/rules/ecu_head.h"

#include <string>

namespace kelmar {

class CMultiLangEx;

/// The name of the protocol for a person.
std::string protocolText(EcuProtocol protocol, const CMultiLangEx& texts);

/// Key of the icon that stands for the protocol.
const char* protocolIcon(EcuProtocol protocol);

/// Several lines, joined by line feeds, that tell who the ECU is; of a file without a head why it
/// has none.
std::string describeHead(const EcuHead& head, const CMultiLangEx& texts);

} // namespace kelmar
