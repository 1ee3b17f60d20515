// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/small_site.h"

namespace kelmar::support {

namespace {

constexpr char parameters[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<site name="Small" key="SMALL">
  <addressingFile>GenericAddressing.xml</addressingFile>
  <dataSets><dataSet label="All" folder="vehicles"/></dataSets>
</site>
)";

constexpr char addressing[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<Functions>
  <Function Name="Engine" Address="122"><XId>2016</XId><RId>2024</RId></Function>
</Functions>
)";

constexpr char windowTexts[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<software>
  <MAIN><CONTROLS>
    <mnuFile><caption xml:lang="en">&amp;File</caption><caption xml:lang="fr">&amp;Fichier</caption></mnuFile>
    <mnuFileQuit><caption xml:lang="en">&amp;Quit</caption><caption xml:lang="fr">&amp;Quitter</caption></mnuFileQuit>
    <mnuTools><caption xml:lang="en">&amp;Tools</caption><caption xml:lang="fr">&amp;Outils</caption></mnuTools>
  </CONTROLS></MAIN>
  <GENERIC><about>
    <text xml:lang="fr">Version : {0}{\n}{\n}Droits : {1}</text>
    <title xml:lang="fr">À propos de Kelmar</title>
  </about></GENERIC>
</software>
)";

constexpr char pageTexts[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<software>
  <MAIN><CONTROLS><TabStripPrincipal>
    <datas><caption xml:lang="en">Data</caption><caption xml:lang="fr">Données</caption><toolTip xml:lang="en">Edit datas</toolTip><toolTip xml:lang="fr">Éditer les données</toolTip></datas>
    <requests><caption xml:lang="en">Requests</caption><caption xml:lang="fr">Requêtes</caption></requests>
  </TabStripPrincipal></CONTROLS></MAIN>
</software>
)";

} // namespace

SmallSite::SmallSite() {
  folder_.write("parameters.xml", parameters);
  folder_.write("GenericAddressing.xml", addressing);
  folder_.write("lang/KelmarX.xml", windowTexts);
  folder_.write("lang/OmnikorKelmarControl.xml", pageTexts);
  folder_.write("doc/kelmar/en/selector.htm", "<html><body>Help</body></html>");
  folder_.write("doc/kelmar/fr/selector.htm", "<html><body>Aide</body></html>");
  folder_.write("doc/kelmar/fr/saving.htm", "<html><body>Aide</body></html>");
  folder_.write("vehicles/Tern/Engine.xml", smallEcu("Engine"));
  folder_.write("vehicles/Tern/Brakes.xml", smallEcu("Brakes"));
}

std::string smallEcu(const std::string& name) {
  return R"(<?xml version="1.0" encoding="UTF-8"?>
<xml xmlns:zem="http://www.omnikor.example/2002/ECU">
<zem:Target Name=")" +
         name +
         R"(" xmlns="http://www.omnikor.example/2002/ECU" xmlns:ds="http://www.omnikor.example/2002/screens">
<Function Name="Engine" Address="122"/>
<CAN BaudRate="500000" Multipoint="1"><SendId>
<CANId Value="2016"/>
</SendId><ReceiveId>
<CANId Value="2024"/>
</ReceiveId></CAN>
<Datas>
<Data Name="Speed">
<Bits>
<Scaled Unit="km/h"/>
</Bits>
</Data></Datas>
<Requests Endian="Big">
<Request Name="Read">
<Sent>
<SentBytes>2101</SentBytes>
</Sent>
<Received MinBytes="3">
<ReplyBytes>6101</ReplyBytes>
<DataItem Name="Speed" FirstByte="3"/>
</Received>
</Request>
</Requests>
</zem:Target>
</xml>
)";
}

} // namespace kelmar::support
