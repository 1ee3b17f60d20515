// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/platform_texts.h"

#include "desktop/qt_text.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace kelmar::desktop {

void translatePlatformTexts(const std::string& language) {
  static const QString name = QStringLiteral("platformTexts");
  QCoreApplication* application = QCoreApplication::instance();
  if (!application) return;
  delete application->findChild<QTranslator*>(name, Qt::FindDirectChildrenOnly);
  auto* translator = new QTranslator(application);
  translator->setObjectName(name);
  if (translator->load(QStringLiteral("qtbase_") + qs(language),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(translator);
}

} // namespace kelmar::desktop
