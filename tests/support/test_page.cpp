// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/test_page.h"

#include "base/failure.h"
#include "database/omnikor_lib_xml.h"

#include <QVBoxLayout>

namespace kelmar::support {

TestPage::TestPage(Recorder& recorder, QWidget* parent) : Page(parent), recorder_(recorder) {
  auto* rows = new QVBoxLayout(this);
  field_ = new QLineEdit(this);
  field_->setObjectName(QStringLiteral("TestField"));
  rows->addWidget(field_);
}

void TestPage::setEditDataName(const QString& name) {
  EditDataName = name;
  note("EditDataName = " + name.toStdString());
}

void TestPage::InitControl() {
  note("InitControl");
  if (onInit) onInit();
  if (!failsWith.empty()) throw Failure(1, "TestPage", failsWith);
}

void TestPage::setLang(const std::string& lang) {
  note("lang = " + lang);
}

void TestPage::displayDatas(OmnikorLibXml& database, const std::string& file) {
  note("displayDatas(" + (database.ActiveTarget ? database.ActiveTarget->name() : "") +
       (file.empty() ? "" : ", " + file) + ")");
}

bool TestPage::TestAndConfirmChange() {
  note("TestAndConfirmChange");
  return applies;
}

void TestPage::CopyDataToScreen(const QString& a, const QString& b, const QString& c) {
  note("CopyDataToScreen(" + a.toStdString() + ", " + b.toStdString() + ", " + c.toStdString() +
       ")");
}

void TestPage::note(const std::string& what) {
  recorder_.note(objectName().toStdString() + "." + what);
}

} // namespace kelmar::support
