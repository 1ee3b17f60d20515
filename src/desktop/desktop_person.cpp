// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/desktop_person.h"

#include "desktop/qt_text.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <vector>

namespace kelmar::desktop {

using platform::Answer;
using platform::Box;
using platform::Buttons;
using platform::FileQuestion;
using platform::Icon;

namespace {

/// A box is never higher than this many lines; what is longer goes behind "Show Details".
constexpr qsizetype longestText = 24;
// In characters. A longer line wraps, and a very long one is cut.
constexpr qsizetype widthOfLine = 100, longestLine = 400, longestDetails = 100'000;

QMessageBox::Icon iconOf(Icon icon) {
  switch (icon) {
  case Icon::Critical:
    return QMessageBox::Critical;
  case Icon::Question:
    return QMessageBox::Question;
  case Icon::Exclamation:
    return QMessageBox::Warning;
  case Icon::Information:
    return QMessageBox::Information;
  case Icon::None:
    break;
  }
  return QMessageBox::NoIcon;
}

struct ButtonsOf {
  QMessageBox::StandardButtons shown;
  QMessageBox::StandardButton first, escape;
};

ButtonsOf buttonsOf(Buttons buttons) {
  using Q = QMessageBox;
  switch (buttons) {
  case Buttons::OkCancel:
    return {Q::Ok | Q::Cancel, Q::Ok, Q::Cancel};
  case Buttons::YesNo:
    return {Q::Yes | Q::No, Q::Yes, Q::No};
  case Buttons::YesNoCancel:
    return {Q::Yes | Q::No | Q::Cancel, Q::Yes, Q::Cancel};
  case Buttons::Ok:
    break;
  }
  return {Q::Ok, Q::Ok, Q::Ok};
}

void nameButtons(QMessageBox& box) {
  const std::pair<QMessageBox::StandardButton, const char*> names[] = {
      {QMessageBox::Ok, "buttonOk"},
      {QMessageBox::Cancel, "buttonCancel"},
      {QMessageBox::Yes, "buttonYes"},
      {QMessageBox::No, "buttonNo"}};
  for (const auto& [which, name] : names)
    if (QAbstractButton* button = box.button(which)) button->setObjectName(QLatin1String(name));
}

QString withPlainLineEnds(QString text) {
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return text;
}

/// So much of the text as fits on a screen; the rest is in the details, as far as a person could
/// read it. Pasted text can bring names of any length.
void showText(QMessageBox& box, const QString& text) {
  const QChar ellipsis(0x2026);
  QStringList shown;
  qsizetype begin = 0, height = 0;
  while (begin <= text.size() && height < longestText) {
    const qsizetype end = text.indexOf(QLatin1Char('\n'), begin);
    const QString line = text.mid(begin, (end < 0 ? text.size() : end) - begin);
    shown << (line.size() <= longestLine ? line : line.left(longestLine) + ellipsis);
    height += 1 + shown.back().size() / widthOfLine;
    begin = end < 0 ? text.size() + 1 : end + 1;
  }
  if (begin <= text.size()) shown << QString(ellipsis);
  box.setText(shown.join(QLatin1Char('\n')));
  if (box.text() != text) box.setDetailedText(text.left(longestDetails));
}

/// The name with the default extension where it fits none of the patterns of the filter, such as
/// "*.xml" in "Ecu Files (*.xml)". The dialog itself takes what stands behind any point for one.
QString withExtension(const QString& file, const QString& filter, const QString& extension) {
  if (extension.isEmpty() || filter.isEmpty()) return file;
  const QString patterns = filter.sliced(filter.lastIndexOf(QLatin1Char('(')) + 1).chopped(1);
  const bool fits = QDir::match(patterns.split(QLatin1Char(' ')), QFileInfo(file).fileName());
  return fits ? file : file + QLatin1Char('.') + extension;
}

/// The ordinary pointers over a dialog, also where the work that asks shows an hourglass.
class OrdinaryPointers {
 public:
  OrdinaryPointers() {
    while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
      overridden_.push_back(*cursor);
      QGuiApplication::restoreOverrideCursor();
    }
  }
  ~OrdinaryPointers() {
    for (; !overridden_.empty(); overridden_.pop_back())
      QGuiApplication::setOverrideCursor(overridden_.back());
  }
  OrdinaryPointers(const OrdinaryPointers&) = delete;
  OrdinaryPointers& operator=(const OrdinaryPointers&) = delete;

 private:
  std::vector<QCursor> overridden_;
};

} // namespace

QStringList nameFilters(const std::string& filter) {
  QStringList result;
  const QStringList parts = qs(filter).split(QLatin1Char('|'));
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString label = parts[i].trimmed();
    if (const qsizetype patternsAt = label.lastIndexOf(QLatin1Char('('));
        patternsAt >= 0 && label.endsWith(QLatin1Char(')')))
      label = label.left(patternsAt).trimmed();
    QStringList patterns;
    for (const QString& pattern : parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts))
      patterns << (pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*")
                                                             : pattern.trimmed());
    result << label + QLatin1String(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
  }
  return result;
}

DesktopPerson::DesktopPerson(FileDialogs dialogs)
    : native_(dialogs == FileDialogs::Native && qEnvironmentVariableIsEmpty("KELMAR_OWN_DIALOGS")) {
}

Answer DesktopPerson::message(const Box& box) {
  const OrdinaryPointers pointers;
  QMessageBox widget(QApplication::activeWindow());
  widget.setObjectName(QStringLiteral("messageBox"));
  widget.setProperty("key", qs(box.key));
  widget.setWindowTitle(qs(box.title));
  widget.setTextFormat(Qt::PlainText); // names of items may hold angle brackets
  widget.setTextInteractionFlags(Qt::TextSelectableByMouse);
  widget.setIcon(iconOf(box.icon));
  const ButtonsOf buttons = buttonsOf(box.buttons);
  widget.setStandardButtons(buttons.shown);
  widget.setDefaultButton(buttons.first);
  widget.setEscapeButton(buttons.escape);
  showText(widget, withPlainLineEnds(qs(box.text)));
  nameButtons(widget);
  switch (widget.exec()) {
  case QMessageBox::Yes:
    return Answer::Yes;
  case QMessageBox::No:
    return Answer::No;
  case QMessageBox::Cancel:
    return Answer::Cancel;
  default:
    return Answer::Ok;
  }
}

std::optional<std::string> DesktopPerson::file(const FileQuestion& question) {
  const OrdinaryPointers pointers;
  const bool saves = question.kind == FileQuestion::Kind::Save;
  const bool folder = question.kind == FileQuestion::Kind::Folder;
  QFileDialog dialog(QApplication::activeWindow(), qs(question.title));
  dialog.setObjectName(QStringLiteral("fileDialog"));
  dialog.setOption(QFileDialog::DontUseNativeDialog, !native_);
  dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(folder  ? QFileDialog::Directory
                     : saves ? QFileDialog::AnyFile
                             : QFileDialog::ExistingFile);
  if (folder) {
    dialog.setOption(QFileDialog::ShowDirsOnly);
  } else {
    if (const QStringList filters = nameFilters(question.filter); !filters.isEmpty())
      dialog.setNameFilters(filters);
    QString extension = qs(question.defaultExtension);
    if (extension.startsWith(QLatin1Char('.'))) extension.remove(0, 1);
    dialog.setDefaultSuffix(extension);
  }
  // A desktop's own dialog would ask before the extension was added, for the wrong file.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);

  const QFileInfo proposal(qs(question.proposal));
  if (proposal.isAbsolute())
    dialog.setDirectory(folder && proposal.isDir() ? proposal.filePath() : proposal.path());
  else if (!lastFolder_.isEmpty())
    dialog.setDirectory(lastFolder_);
  if (const QString name = proposal.fileName(); !name.isEmpty() && !folder)
    dialog.selectFile(proposal.isAbsolute() ? proposal.filePath() : name);

  while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
    QString chosen = QFileInfo(dialog.selectedFiles().constFirst()).absoluteFilePath();
    if (saves) chosen = withExtension(chosen, dialog.selectedNameFilter(), dialog.defaultSuffix());
    if (saves && !mayBeWritten(QApplication::activeWindow(), chosen)) continue;
    lastFolder_ = folder ? chosen : QFileInfo(chosen).path();
    return u8(chosen);
  }
  return std::nullopt;
}

std::string DesktopPerson::input(const platform::InputQuestion& question) {
  const OrdinaryPointers pointers;
  QInputDialog dialog(QApplication::activeWindow());
  dialog.setObjectName(QStringLiteral("inputBox"));
  dialog.setProperty("key", qs(question.key));
  dialog.setWindowTitle(qs(question.title));
  dialog.setLabelText(withPlainLineEnds(qs(question.text)));
  dialog.setTextValue(qs(question.proposal));
  dialog.resize(dialog.sizeHint().expandedTo({420, 0}));
  if (auto* field = dialog.findChild<QLineEdit*>()) {
    field->setObjectName(QStringLiteral("inputText"));
    field->selectAll();
  }
  return dialog.exec() == QDialog::Accepted ? u8(dialog.textValue()) : std::string();
}

bool DesktopPerson::mayBeWritten(QWidget* parent, const QString& file) const {
  const QFileInfo info(file);
  const bool folderMissing = !QFileInfo(info.path()).isDir();
  if (!folderMissing && !info.exists()) return true;
  // The texts are those of the dialog, so that they come in the language of its buttons.
  QMessageBox box(parent);
  box.setObjectName(QStringLiteral("overwriteBox"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(QFileDialog::tr("Save As"));
  if (folderMissing) {
    box.setText(QFileDialog::tr(
                    "%1\nDirectory not found.\nPlease verify the correct directory name was given.")
                    .arg(info.path()));
    box.setStandardButtons(QMessageBox::Ok);
  } else {
    box.setText(
        QFileDialog::tr("%1 already exists.\nDo you want to replace it?").arg(info.fileName()));
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
  }
  nameButtons(box);
  return box.exec() == QMessageBox::Yes;
}

} // namespace kelmar::desktop
