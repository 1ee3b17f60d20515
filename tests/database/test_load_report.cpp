// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

namespace kelmar::testing {
namespace {

TEST(LoadReport, NamesEveryKindWithNamePathLineAndReason) {
  Ecu ecu;
  const std::string text = R"(<xml>
<zem:Target Name="E">
<Projects><P1/><P1/></Projects>
<Function Name="F" Address="1" ToolAddress="x"/>
<Language Name="l" Reference="y"/>
<Failures Id="99"/>
<K BaudRate="z"/>
<Datas>
<Data Name="D"><Bits count="a"><List><Item Value="b" Text="t"/></List></Bits></Data>
<Data Name="D"/>
<Data Name="F"/>
<Data Name="Z"><Bytes count="c"/></Data>
</Datas>
<Requests>
<Request/>
<Request Name="R"><Sent>
<SentBytes>0</SentBytes>
<DataItem Name="X"/>
<DataItem FirstByte="2"/>
<DataItem Name="D" Endian="Middle"/>
<DataItem Name="D"/></Sent>
<Received MinBytes="d"><ShiftBytesCount>e</ShiftBytesCount><ReplyBytes>q</ReplyBytes></Received></Request>
<Request Name="R"/>
</Requests>
<Devices>
<Device Name="V" DTC="f">
<DeviceData Name="D"/>
<DeviceData Name="D"/>
<Test Type="1" OBD="3" Severity="g"><StoredFlag>D</StoredFlag><PresentFlag>F</PresentFlag></Test>
<Test Type="2" OBD="3"/>
<Test Type="1"/></Device>
<Device Name="V"/>
<Device Name="W"/>
</Devices>
<ds:Categories>
<Category Name="C">
<Screen/>
<Screen Name="S" Width="h">
<Send RequestName="Y"/>
<Send/>
<Message>lost</Message>
<Display RequestName="Y"/>
<Display RequestName="R"><Font Size="9E99"/><Threshold Value="1" Color="i"/></Display></Screen>
<Screen Name="T"><Input DataName="D" RequestName="Y"/></Screen></Category>
<Category Name="C"/>
</ds:Categories>
<AutoIdents>
<AutoIdent DiagVersion="1" Supplier="" Soft="s" Version=""/>
<AutoIdent DiagVersion="1" Supplier="" Soft="u"/>
<AutoIdent DiagVersion="1" Supplier="" Soft="v" Version=""/></AutoIdents>
</zem:Target></xml>)";
  EXPECT_TRUE(ecu.failureOfLoad(text).starts_with("91 AutoIdentItem.loadXml: "));
  const std::string duplicateData =
      "Duplicate Data, a data can be used only one time in the same request\n";
  const std::string duplicateDevice =
      "Duplicate Data, a data can be used only one time in one device\n";
  EXPECT_EQ(
      ecu.report(),
      "Project|P1|Projects/P1|3|the project stands there already\n"
      "Value|ToolAddress|Function[F]|4|'x': Type mismatch\n"
      "Value|Reference|Language[l]|5|'y': Type mismatch\n"
      "Value|Id|Failures|6|'99': no such type of failure\n"
      "Value|BaudRate|K|7|'z': Type mismatch\n"
      "Value|count|Datas/Data[D]/Bits|9|'a': Type mismatch\n"
      "Value|Value|Datas/Data[D]/Bits/List/Item[t]|9|'b': Type mismatch\n"
      "Data|D|Datas/Data[D]|10|Key exists already\n"
      "Value|count|Datas/Data[Z]/Bytes|12|'c': Type mismatch\n"
      "Request||Requests/Request|15|RequestItem.loadXml error : Name not defined\n"
      "SentBytes|0|Requests/Request[R]/Sent/SentBytes|17|not pairs of hexadecimal digits\n"
      "Position|X|Requests/Request[R]/Sent/DataItem[X]|18|Data name 'X' not found, request : R\n"
      "Position||Requests/Request[R]/Sent/DataItem|19|Object not set\n"
      "Value|Endian|Requests/Request[R]/Sent/DataItem[D]|20|'Middle': no endianness\n"
      "Position|D|Requests/Request[R]/Sent/DataItem[D]|21|" +
          duplicateData +
          "Value|MinBytes|Requests/Request[R]/Received|22|'d': Type mismatch\n"
          "Value|ShiftBytesCount|Requests/Request[R]/Received/ShiftBytesCount|22|'e': Type "
          "mismatch\n"
          "ReplyBytes|q|Requests/Request[R]/Received/ReplyBytes|22|not pairs of hexadecimal "
          "digits\n"
          "Request|R|Requests/Request[R]|23|Key exists already\n"
          "Value|DTC|Devices/Device[V]|26|'f': Type mismatch\n"
          "Device data|D|Devices/Device[V]/DeviceData[D]|28|" +
          duplicateDevice +
          "Value|Severity|Devices/Device[V]/Test[1]|29|'g': Type mismatch\n"
          "Flag|D|Devices/Device[V]/Test[1]/StoredFlag|29|the data is used by a device already\n"
          "Flag|F|Devices/Device[V]/Test[1]/PresentFlag|29|Data 'F' doesn't exist, remove from "
          "PresentFlag list\n"
          "OBD|3|Devices/Device[V]/Test[2]|30|Duplicate OBD code\n"
          "Test|1|Devices/Device[V]/Test[1]|31|" +
          duplicateDevice +
          "Device|V|Devices/Device[V]|32|Key exists already\n"
          "Device|W|Devices/Device[W]|33|reading ends at the duplicate device before it\n"
          "Screen||ds:Categories/Category[C]/Screen|37|Name undefined, bad screen\n"
          "Value|Width|ds:Categories/Category[C]/Screen[S]|38|'h': Type mismatch\n"
          "Message|lost|ds:Categories/Category[C]/Screen[S]/Message|41|the message of a screen is "
          "written but "
          "not read\n"
          "Scenario step|Y|ds:Categories/Category[C]/Screen[S]/Send[Y]|39|ScenarioItem.loadXml : "
          "request (Y) "
          "missing \n"
          "Scenario step||ds:Categories/Category[C]/Screen[S]/Send|40|ScenarioItem.loadXml : "
          "requestName "
          "missing \n"
          "Display|Y|ds:Categories/Category[C]/Screen[S]/Display[Y]|42|DisplayItem.loadXml : "
          "request missing "
          "(Y)\n"
          "Value|Size|ds:Categories/Category[C]/Screen[S]/Display[R]/Font|43|Overflow\n"
          "Value|Color|ds:Categories/Category[C]/Screen[S]/Display[R]/Threshold[1]|43|'i': Type "
          "mismatch\n"
          "Display|Y/D|ds:Categories/Category[C]/Screen[T]/Input[D]|44|DisplayItem.loadXml : "
          "request/data "
          "missing (Y/D)\n"
          "Screen|T|ds:Categories/Category[C]/Screen[T]|44|request/data missing\n"
          "Category|C|ds:Categories/Category[C]|45|Duplicate category\n"
          "AutoIdent|u|AutoIdents/AutoIdent|49|Object not set (AutoIdent/@Version)\n"
          "AutoIdent|v|AutoIdents/AutoIdent|50|a record before it could not be read\n");
}

TEST(LoadReport, IsEmptyForAFileThatIsKeptWhole) {
  Ecu ecu;
  ecu.load(FileText{});
  EXPECT_EQ(ecu.report(), "");
}

TEST(LoadReport, IsThatOfTheLastLoadAndCanBeForgotten) {
  Ecu ecu;
  FileText file;
  file.requests = "<Request/>";
  ecu.load(file);
  EXPECT_EQ(ecu.db.report().size(), 1u);
  ecu.load(FileText{});
  EXPECT_EQ(ecu.db.report().size(), 0u);
  ecu.load(file);
  ecu.db.forgetReport();
  EXPECT_EQ(ecu.db.report().size(), 0u);
  ecu.load(file);
  ecu.db.NewTarget();
  EXPECT_EQ(ecu.db.report().size(), 0u);
  ecu.load(file);
  EXPECT_NE(ecu.failureOfLoad("<xml"), "");
  EXPECT_EQ(ecu.db.report().size(), 0u) << "a file that is no XML has none";
}

TEST(LoadReport, RaisesNoFurtherMessagesAndNoBox) {
  Ecu ecu;
  FileText file;
  file.requests = "<Request/>";
  file.categories = "<Category Name='C'><Screen/></Category>";
  ecu.load(file);
  EXPECT_EQ(ecu.db.report().size(), 2u);
  EXPECT_EQ(ecu.messages.size(), 1u) << "the loading of the address alone";
}

TEST(LoadReport, ShowsOnlyTheStartOfALongText) {
  Ecu ecu;
  FileText file;
  file.requests =
      "<Request Name='R'><Received MinBytes='" + std::string(5000, 'x') + "'/></Request>";
  ecu.load(file);
  ASSERT_EQ(ecu.db.report().size(), 1u);
  EXPECT_EQ(ecu.db.report()[0].reason, "'" + std::string(60, 'x') + "...': Type mismatch");
}

TEST(LoadReport, CutsBetweenCharacters) {
  Ecu ecu;
  FileText file;
  std::string long1;
  for (int i = 0; i < 100; ++i)
    long1 += "é";
  file.requests = "<Request Name='R'><Sent><SentBytes>x" + long1 +
                  "</SentBytes></Sent><Received MinBytes='x" + long1 + "'/></Request>";
  ecu.load(file);
  ASSERT_EQ(ecu.db.report().size(), 2u);
  EXPECT_EQ(ecu.db.report()[0].name, "x" + long1.substr(0, 58) + "...");
  EXPECT_EQ(ecu.db.report()[1].reason, "'x" + long1.substr(0, 58) + "...': Type mismatch");
}

TEST(LoadReport, OfALoadThatFailedIsKept) {
  Ecu ecu;
  FileText file;
  file.requests = "<Request/>";
  file.autoIdents = "<AutoIdents><AutoIdent/></AutoIdents>";
  EXPECT_NE(ecu.failureOfLoad(file.text()), "");
  EXPECT_EQ(ecu.db.report().size(), 2u) << ecu.report();
}

} // namespace
} // namespace kelmar::testing
