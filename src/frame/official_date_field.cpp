// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/official_date_field.h"

#include "desktop/qt_text.h"
#include "frame/rules/edit_param_fields.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

namespace kelmar {

using desktop::qs;
using desktop::u8;

OfficialDateField::OfficialDateField(QWidget* parent) : QDateTimeEdit(parent) {
  setCalendarPopup(true);
  setLocale(QLocale::c());
  setDateTimeRange(QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC),
                   QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59), Qt::UTC));
  setTimeSpec(Qt::UTC); // no hour is missing because of summer time
}

void OfficialDateField::showStored(const std::string& stored) {
  if (stored.empty()) return showNow();
  const auto moment = readOfficialDate(stored);
  setSpecialValueText(moment ? QString() : qs(stored));
  setDateTime(moment ? QDateTime(QDate(moment->year, moment->month, moment->day),
                                 QTime(moment->hour, moment->minute, moment->second), Qt::UTC)
                     : minimumDateTime());
}

std::string OfficialDateField::stored() const {
  if (showsNoDate()) return u8(specialValueText());
  const QDate day = date();
  const QTime hour = time();
  return officialDateText(
      {day.year(), day.month(), day.day(), hour.hour(), hour.minute(), hour.second()});
}

void OfficialDateField::stepBy(int steps) {
  if (showsNoDate()) showNow();
  QDateTimeEdit::stepBy(steps);
}

void OfficialDateField::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  const QLineEdit& field = *lineEdit();
  const bool isDigit = typed.size() == 1 && typed.front().isDigit();
  const bool wasLeft = std::exchange(digitLeftSection_, false);
  if (isDigit) {
    // What is typed over the whole begins with the day.
    if (const bool begins = showsNoDate(); begins || field.selectedText() == field.text()) {
      if (begins) showNow();
      setSelectedSection(sectionAt(0));
    }
  } else if (!typed.isEmpty() && wasLeft) {
    // A full section leads to the next one by itself: the separator typed then is passed already.
    const int place = field.hasSelectedText() ? field.selectionStart() : field.cursorPosition();
    if (field.text().left(place).endsWith(typed)) return;
  }
  const Section before = currentSection();
  QDateTimeEdit::keyPressEvent(event);
  digitLeftSection_ = isDigit && currentSection() != before;
}

void OfficialDateField::mousePressEvent(QMouseEvent* event) {
  QDateTimeEdit::mousePressEvent(event);
  // The calendar would open in the first year of all.
  if (showsNoDate())
    calendarWidget()->setCurrentPage(QDate::currentDate().year(), QDate::currentDate().month());
}

QValidator::State OfficialDateField::validate(QString& text, int& position) const {
  // There is no section to type in.
  return showsNoDate() ? QValidator::Invalid : QDateTimeEdit::validate(text, position);
}

bool OfficialDateField::showsNoDate() const {
  return !specialValueText().isEmpty() && dateTime() == minimumDateTime();
}

void OfficialDateField::showNow() {
  setSpecialValueText({});
  setDateTime(QDateTime(QDate::currentDate(), QTime::currentTime(), Qt::UTC));
}

} // namespace kelmar
