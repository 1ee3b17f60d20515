// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace kelmar::support {

/// The text of a small ECU file, whose parts can be replaced one by one.
struct EcuFileText {
  std::string name = "Engine";
  std::string function = R"(<Function Name="Engine" Address="122" LogicalAddress="7A"/>)";
  std::string protocol =
      R"(<CAN BaudRate="10400" Multipoint="1"><SendId><CANId Value="2016"/></SendId></CAN>)";
  std::string autoIdents =
      R"(<AutoIdent DiagVersion="4" Supplier="SUP" Soft="0100" Version="0001"/>)";
  std::string rest = "<Datas>\n</Datas>\n<Requests Endian=\"Big\">\n</Requests>\n";

  std::string text() const {
    return "<?xml version='1.0' encoding=\"UTF-8\"?><xml>\n<Generator name=\"Kelmar\"/>\n"
           "<zem:Target Name=\"" +
           name + "\">\n" + function + "\n<Language Name=\"Français\"/>\n" + protocol +
           "\n<AutoIdents>\n" + autoIdents + "</AutoIdents>\n" + rest + "</zem:Target></xml>";
  }
};

} // namespace kelmar::support
