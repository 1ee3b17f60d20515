// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/commands.h"
#include "app/cli/json_writer.h"
#include "app/cli/session.h"

namespace kelmar::cli {

namespace {

// One function for each class, with the members in the order of the class. A collection or an
// object that is not there is null.

void write(JsonWriter& json, const AutoIdentItem& item);
void write(JsonWriter& json, const DataListeItem& item);
void write(JsonWriter& json, const DataItem& item);
void write(JsonWriter& json, const DataPositionItem& item);
void write(JsonWriter& json, const RequestItem& item);
void write(JsonWriter& json, const DeviceDataItem& item);
void write(JsonWriter& json, const TestItem& item);
void write(JsonWriter& json, const OrganeItem& item);
void write(JsonWriter& json, const ScenarioItem& item);
void write(JsonWriter& json, const ButtonItem& item);
void write(JsonWriter& json, const LabelItem& item);
void write(JsonWriter& json, const RangeItem& item);
void write(JsonWriter& json, const DisplayDataItem& item);
void write(JsonWriter& json, const DisplayExtraItem& item);
void write(JsonWriter& json, const DisplayItem& item);
void write(JsonWriter& json, const ScreenItem& item);
void write(JsonWriter& json, const CategoryItem& item);
void write(JsonWriter& json, const TargetParamItem& item);
void write(JsonWriter& json, const TargetItem& item);

template <class Collection>
void writeItems(JsonWriter& json, std::string_view name, const Collection& items) {
  json.key(name);
  if (!items) {
    json.null();
    return;
  }
  json.beginArray();
  for (const auto* item : *items)
    write(json, *item);
  json.endArray();
}

template <class Object>
void writeObject(JsonWriter& json, std::string_view name, const Object& object) {
  json.key(name);
  if (object) {
    write(json, *object);
  } else {
    json.null();
  }
}

void writeFrame(JsonWriter& json, std::string_view name,
                const std::shared_ptr<FrameBuffer>& frame) {
  json.key(name);
  if (frame) {
    json.value(frame->HexText());
  } else {
    json.null();
  }
}

void writeFlags(JsonWriter& json, std::string_view name, const FlagPositions& flags) {
  json.key(name).beginArray();
  for (const DataPositionItem* position : flags)
    json.value(position->dataName);
  json.endArray();
}

void write(JsonWriter& json, const AutoIdentItem& item) {
  json.beginObject();
  json.member("DiagNumber", item.DiagNumber);
  json.member("SupplierCode", item.SupplierCode);
  json.member("Soft", item.Soft);
  json.member("Version", item.Version);
  json.endObject();
}

void write(JsonWriter& json, const DataListeItem& item) {
  json.beginObject();
  json.member("Valeur", item.Valeur);
  json.member("libelle", item.libelle);
  json.member("Info", item.Info);
  json.endObject();
}

void write(JsonWriter& json, const DataItem& item) {
  json.beginObject();
  json.member("dataName", item.dataName());
  json.member("NumberBits", item.NumberBits);
  json.member("numerique", item.numerique);
  json.member("liste", item.liste);
  json.member("Unite", item.Unite);
  json.member("Signe", item.Signe);
  json.member("CoeffA", item.CoeffA.value());
  json.member("CoeffB", item.CoeffB.value());
  json.member("CoeffC", item.CoeffC.value());
  json.member("DataFormat", item.DataFormat);
  json.member("Ascii", item.Ascii);
  json.member("Mnemo", item.Mnemo);
  json.member("Description", item.Description);
  json.member("Fiche", item.Fiche);
  writeItems(json, "DataListes", item.DataListes);
  json.endObject();
}

void write(JsonWriter& json, const DataPositionItem& item) {
  json.beginObject();
  json.member("dataName", item.dataName);
  json.member("StartOctet", item.StartOctet);
  json.member("StartBit", item.StartBit);
  json.member("LittleEndian", item.LittleEndian);
  json.member("param", item.param);
  json.member("reference", item.reference);
  json.endObject();
}

void write(JsonWriter& json, const RequestItem& item) {
  json.beginObject();
  json.member("requestName", item.requestName);
  writeFrame(json, "RequestBytes", item.RequestBytes);
  writeFrame(json, "ReplyBytes", item.ReplyBytes);
  json.member("LengthDatas", item.LengthDatas);
  json.member("ShiftBytesCount", item.ShiftBytesCount);
  json.member("ManuelSend", item.ManuelSend);
  json.member("LgVariable", item.LgVariable);
  json.member("AccesTous", item.AccesTous);
  json.member("AccesUsine", item.AccesUsine);
  json.member("AccesApresVente", item.AccesApresVente);
  json.member("AccesEtudes", item.AccesEtudes);
  json.member("AccesConstructeur", item.AccesConstructeur);
  json.member("DossierMaintenabilite", item.DossierMaintenabilite);
  json.member("Commentaire", item.Commentaire);
  writeItems(json, "DataPositions", item.DataPositions);
  json.endObject();
}

void write(JsonWriter& json, const DeviceDataItem& item) {
  json.beginObject();
  json.member("dataName", item.dataName);
  json.member("FlagPanne", item.FlagPanne);
  json.endObject();
}

void write(JsonWriter& json, const TestItem& item) {
  json.beginObject();
  json.member("Description", item.Description);
  json.member("testType", item.testType);
  json.member("OBD", item.OBD());
  json.member("Severity", item.Severity);
  json.member("Autocheck", item.Autocheck);
  writeFlags(json, "StoredFlag", item.StoredFlag);
  writeFlags(json, "PresentFlag", item.PresentFlag);
  json.endObject();
}

void write(JsonWriter& json, const OrganeItem& item) {
  json.beginObject();
  json.member("organeName", item.organeName);
  json.member("Mnemonique", item.Mnemonique);
  json.member("OrganeTypeId", item.OrganeTypeId());
  json.member("OrganeTypeName", item.OrganeTypeName());
  json.member("OrganeDTC", item.OrganeDTC);
  json.member("OrganeOBD", item.OrganeOBD);
  writeItems(json, "DeviceDatas", item.DeviceDatas);
  writeItems(json, "Tests", item.Tests);
  json.key("request");
  if (item.request()) {
    json.value(item.request()->requestName);
  } else {
    json.null();
  }
  json.member("requestName", item.requestName);
  json.endObject();
}

void write(JsonWriter& json, const ScenarioItem& item) {
  json.beginObject();
  json.member("Index", item.Index);
  json.member("delay", item.delay);
  json.member("requestName", item.requestName);
  json.endObject();
}

void write(JsonWriter& json, const ButtonItem& item) {
  json.beginObject();
  json.member("FontBold", item.FontBold);
  json.member("FontItalic", item.FontItalic);
  json.member("FontSize", item.FontSize);
  json.member("FontName", item.FontName);
  json.member("caption", item.caption);
  json.member("ButtonLeft", item.ButtonLeft);
  json.member("ButtonTop", item.ButtonTop);
  json.member("ButtonHeight", item.ButtonHeight);
  json.member("ButtonWidth", item.ButtonWidth);
  json.member("Message", item.Message);
  writeItems(json, "ScenarioItems", item.ScenarioItems);
  json.member("InitButton", item.InitButton);
  json.endObject();
}

void write(JsonWriter& json, const LabelItem& item) {
  json.beginObject();
  json.member("LabelId", item.LabelId);
  json.member("LabelText", item.LabelText);
  json.member("LabelLeft", item.LabelLeft);
  json.member("LabelTop", item.LabelTop);
  json.member("LabelHeight", item.LabelHeight);
  json.member("LabelWidth", item.LabelWidth);
  json.member("FontName", item.FontName);
  json.member("FontSize", item.FontSize);
  json.member("FontBold", item.FontBold);
  json.member("FontItalic", item.FontItalic);
  json.member("FontColor", item.FontColor);
  json.member("LabelColor", item.LabelColor);
  json.member("Alignment", item.Alignment);
  json.endObject();
}

void write(JsonWriter& json, const RangeItem& item) {
  json.beginObject();
  json.member("Seuil", item.Seuil);
  json.member("Couleur", item.Couleur);
  json.member("SonFlag", item.SonFlag);
  json.member("Son", item.Son());
  json.member("SoundName", item.SoundName());
  json.endObject();
}

void write(JsonWriter& json, const DisplayDataItem& item) {
  json.beginObject();
  json.member("dataName", item.dataName);
  json.member("requestName", item.requestName);
  json.endObject();
}

void write(JsonWriter& json, const DisplayExtraItem& item) {
  json.beginObject();
  json.member("requestName", item.requestName);
  json.member("param", item.param);
  json.endObject();
}

void write(JsonWriter& json, const DisplayItem& item) {
  json.beginObject();
  json.member("FontBold", item.FontBold);
  json.member("FontColor", item.FontColor);
  json.member("FontItalic", item.FontItalic);
  json.member("FontName", item.FontName);
  json.member("FontSize", item.FontSize);
  json.member("DisplayColor", item.DisplayColor);
  json.member("CaptionWidth", item.CaptionWidth);
  json.member("DisplayWidth", item.DisplayWidth);
  json.member("DisplayHeight", item.DisplayHeight);
  json.member("DisplayTop", item.DisplayTop);
  json.member("DisplayLeft", item.DisplayLeft);
  json.member("TypeDisplay", item.TypeDisplay);
  writeItems(json, "RangeItems", item.RangeItems);
  writeObject(json, "DisplayDataItem", item.DisplayDataItem);
  writeObject(json, "DisplayExtraItem", item.DisplayExtraItem);
  json.endObject();
}

void write(JsonWriter& json, const ScreenItem& item) {
  json.beginObject();
  json.member("screenName", item.screenName);
  json.member("InitId", item.InitId);
  json.member("WindowState", item.WindowState);
  json.member("ScreenWidth", item.ScreenWidth);
  json.member("ScreenHeight", item.ScreenHeight);
  json.member("ScreenColor", item.ScreenColor);
  writeObject(json, "ButtonInit", item.ButtonInit);
  writeItems(json, "ButtonItems", item.ButtonItems);
  writeItems(json, "DisplayItems", item.DisplayItems);
  writeItems(json, "LabelItems", item.LabelItems);
  json.endObject();
}

void write(JsonWriter& json, const CategoryItem& item) {
  json.beginObject();
  json.member("categoryName", item.categoryName);
  writeItems(json, "Screens", item.Screens);
  json.endObject();
}

void write(JsonWriter& json, const TargetParamItem& item) {
  json.beginObject();
  json.member("initMode", item.initMode);
  json.member("multiPoint", item.multiPoint);
  json.member("key1", item.key1);
  json.member("key2", item.key2);
  json.member("BaudRate", item.BaudRate);
  json.member("CANFDTxMaxDataLength", item.CANFDTxMaxDataLength);
  json.member("IPAddress", item.IPAddress);
  json.member("MACAddress", item.MACAddress);
  json.member("InterByteDelay", item.InterByteDelay);
  json.member("KW2Delay", item.KW2Delay);
  json.member("FirstRequestDelay", item.FirstRequestDelay);
  json.member("ReplyToRequestDelay", item.ReplyToRequestDelay);
  json.member("TesterPresentDelay", item.TesterPresentDelay);
  json.member("KW2Timeout", item.KW2Timeout);
  json.member("RequestToReplyTimeout", item.RequestToReplyTimeout);
  json.member("ErrorDelay", item.ErrorDelay);
  json.member("LittleEndian", item.LittleEndian);
  json.member("Reprogrammable", item.Reprogrammable);
  json.member("DateOfficialisation", item.DateOfficialisation);
  json.member("Gateway", item.Gateway);
  json.member("ToolAddress", item.storedToolAddress());
  json.member("Comment", item.Comment);
  json.member("TypePanneId", item.TypePanneId());
  json.member("TypePanne", item.TypePanne());
  json.member("canXid", item.canXid);
  json.member("canRid", item.canRid);
  json.endObject();
}

void write(JsonWriter& json, const TargetItem& target) {
  json.beginObject();
  json.member("name", target.name());
  json.member("Address", target.Address());
  json.member("LogicalAddress", target.LogicalAddress());
  json.member("Langue", target.Langue());
  json.member("reference", target.reference());
  json.member("Email", target.Email());
  json.member("Href", target.Href());
  json.member("Upload", target.Upload());
  json.member("Group", target.Group());
  json.key("Projects").beginArray();
  for (const std::string& project : target.Projects)
    json.value(project);
  json.endArray();
  writeObject(json, "Parametres", target.Parametres());
  writeItems(json, "datas", target.datas());
  writeItems(json, "Requests", target.Requests());
  writeItems(json, "Organes", target.Organes());
  writeItems(json, "Categories", target.Categories);
  writeItems(json, "AutoIdents", target.AutoIdents);
  json.member("ValueChanged", target.ValueChanged);
  json.endObject();
}

} // namespace

int runDump(const Arguments& arguments, Output& output) {
  Session session(arguments.words()[0], arguments);
  if (!session.load()) return failed;
  JsonWriter json(output);
  write(json, session.target());
  return done;
}

} // namespace kelmar::cli
