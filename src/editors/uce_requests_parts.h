// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/zem_numeric.h"
#include "editors/position_pane.h"
#include "editors/rules/requests/request_fields.h"
#include "editors/rules/requests/request_menu.h"
#include "editors/rules/requests/request_xml_clipboard.h"
#include "editors/uce_requests.h"

#include <QGroupBox>

#include <unordered_map>
#include <unordered_set>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSplitter;
class QTabBar;
class QToolBar;

namespace kelmar {

/// A frame whose caption can have a colour of its own.
class CaptionFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;
  void setFault(bool fault);

 protected:
  void initStyleOption(QStyleOptionGroupBox* option) const override;

 private:
  bool fault_ = false;
};

/// The controls of the page of requests and what they do.
struct UceRequests::Parts : PositionHost {
  Parts(UceRequests& owner, platform::Settings* store) : page(owner), settings(store) {}

  // uce_requests_layout.cpp
  void makeControls();
  QWidget* makeCommonFields();
  QWidget* makeSent();
  QWidget* makeReceived();
  void connectControls();
  void colourFields();
  void enableFields();
  // uce_requests_commands.cpp
  void makeCommands();
  std::vector<Command> listKeys();
  void chosen(const MenuEntry& entry);
  bool chooseRows(const std::string& key);
  bool runOnFlags(const std::string& key);
  void newOne();
  void cut();
  void CutRequest();
  void copy();
  void copyText();
  void copyTradConfig();
  void pasteData(const std::string& text);
  void changeNames(const std::string& key);
  void setReferences(bool parameters, bool setFlag);
  void normalizeReply();
  void normalizeAllReplies();
  void generateTests();
  void importHex();
  void dropActiveAndRebuild();
  void forgetMarks();
  RequestPageState state() const;
  RequestSelection selected() const;
  // uce_requests.cpp
  TargetItem* target() const { return database ? database->ActiveTarget.get() : nullptr; }
  RequestItem* request() const { return page.activeItem<RequestItem>(); }
  void translate();
  void nameForReaders();
  RequestFields typedFields() const;
  RequestFields readControls() const;
  void showControls(const RequestFields& fields);
  void edited();
  void applied(int kind);
  void applied(int kind, bool pending);
  void markTyped();
  void frameEdited(QLineEdit& field);
  void numberEdited(const ZEMnumeric& field, std::int32_t inItem);
  void ValidChange(bool toFile);
  void cancel();
  bool rename(RequestItem& item, const std::string& text);
  void ShowErrorMsg();
  void warn(const std::string& text, std::uint32_t colour);
  void showCaption();
  void showSide(bool sent);
  RowLook lookOf(RowTag tag) const;
  CellLook cellLookOf(RowTag tag, int column) const;
  void help();
  /// Without boxes and signals: the row of a request as its item is now.
  void setRequestListView(RequestItem& item);

  // PositionHost
  OmnikorLibXml* openDatabase() const override { return target() ? database : nullptr; }
  RequestItem* activeRequest() const override { return request(); }
  bool sentShown() const override { return activeTab == 1; }
  bool requestChanged() const override { return page.edits().changed(); }
  std::optional<Failure> GetRequestFromScreen() override;
  void goToBadFrame() override;
  void positionsChanged(int kind) override;
  void saved() override;
  void validated() override { page.announceApplied(); }
  void cancelled() override;
  void refreshRequest() override;
  void warnOutside(const std::string& text) override;
  void warnBroken() override;
  void goToData(const std::string& name) override { emit page.OnDataSelect(name); }
  void goToHelp() override { emit page.help("request", "data"); }

  UceRequests& page;
  bool initialised = false; ///< from InitControl on
  platform::Settings* settings;
  OmnikorLibXml* database = nullptr;
  int activeTab = 1;
  bool errorShown = false;
  BadFrame::Field badFrame = BadFrame::Field::RequestBytes;
  bool badFrameLeft = false; ///< a bad frame was told, and what is shown next takes its place
  RowTag shownItem = nullptr;
  /// A data was led to before its request was there: its side comes to the front with it, once.
  bool sideWanted = false;
  /// Until the list is filled again: rows whose reply template a normalisation has changed (true)
  /// or found right, and those without request bytes that it came to.
  std::unordered_map<RowTag, bool> normalised;
  std::unordered_set<RowTag> withoutBytes;
  /// Rows that are not bold and have no tool tip since they were renamed, with the colour that they
  /// keep, until they are shown anew.
  std::unordered_map<RowTag, std::optional<std::uint32_t>> renamed;
  CommandTable *commands = nullptr, *listCommands = nullptr;

  QToolBar* tbToolBar = nullptr;
  QLabel *errorMsg = nullptr, *lblInfo = nullptr, *lblReqLength = nullptr;
  QSplitter *splitter = nullptr, *fieldSplitter = nullptr;
  ListView* LVrequests = nullptr;
  CaptionFrame* FrameInfos = nullptr;
  QPlainTextEdit* TextComment = nullptr;
  QCheckBox *CheckApresVente = nullptr, *CheckConstructeur = nullptr, *CheckEtude = nullptr,
            *CheckAccesAll = nullptr, *CheckUsine = nullptr, *CheckReport = nullptr,
            *CheckLgVariable = nullptr, *CheckManualSend = nullptr;
  QTabBar* TSsendReceipt = nullptr;
  QWidget *FrameSend = nullptr, *FrameReceipt = nullptr;
  QLineEdit *TextReqBytes = nullptr, *Rtemplate = nullptr;
  QPushButton *cbExportSendBufferToHex = nullptr, *cbImportSendBufferFromHex = nullptr;
  ZEMnumeric *ValLenData = nullptr, *ValShiftBytes = nullptr;
  PositionPane* positions = nullptr;
};

} // namespace kelmar
