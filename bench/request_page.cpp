// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// bench_request_page list N          fills the list of the request page with N requests, and a
//                                    QTreeWidget in one call
// bench_request_page keystroke N     types into the field of the sent bytes of a frame of N bytes,
//                                    and into a bare QLineEdit with the same text
//
// Prints two figures, ours and the baseline: seconds until what changed is painted; of five
// fillings the least, of sixty keystrokes the median.

#include "bench/figures.h"
#include "desktop/qt_text.h"
#include "editors/uce_requests.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>

namespace kelmar::bench {
namespace {

using desktop::qs;

constexpr int width = 1200, height = 700, keystrokes = 60, fills = 5;

/// Paints now what is marked to be painted, as the event loop would some milliseconds later.
void paint(QWidget& window) {
  QCoreApplication::sendPostedEvents();
  QEvent update(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(&window, &update);
}

void show(QWidget& window) {
  window.resize(width, height);
  window.show();
  window.activateWindow();
  for (int i = 0; i < 1000 && !window.isActiveWindow(); ++i)
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  QCoreApplication::processEvents();
  paint(window);
}

struct Ecu {
  explicit Ecu(int requests) {
    database.NewTarget();
    for (int i = 0; i < requests; ++i)
      add("Request " + std::to_string(i), "2101");
  }
  RequestItem& add(const std::string& name, const std::string& sent) {
    TargetItem& target = *database.ActiveTarget;
    RequestItem* request = target.Requests()->Add(name);
    request->parent = &target;
    request->RequestBytes = std::make_shared<FrameBuffer>();
    request->RequestBytes->setHexText(sent);
    request->ReplyBytes = std::make_shared<FrameBuffer>();
    request->Commentaire = "what the request is for";
    return *request;
  }

  WillingPerson person;
  StandingClock clock;
  OmnikorLibXml database{{nullptr, &person, &clock}, "en"};
};

double fillPage(int count) {
  Ecu empty(0), full(count);
  UceRequests page(full.person);
  page.InitControl();
  page.displayDatas(empty.database, "");
  show(page);
  return secondsOf([&] {
    page.displayDatas(full.database, "");
    paint(page);
  });
}

double fillTree(int count) {
  const Ecu full(count);
  QTreeWidget tree;
  tree.setHeaderLabels({"Request name", "Send bytes", "Comment"});
  tree.setRootIsDecorated(false);
  tree.setUniformRowHeights(true);
  show(tree);
  return secondsOf([&] {
    QList<QTreeWidgetItem*> items;
    items.reserve(count);
    for (const RequestItem* request : *full.database.ActiveTarget->Requests())
      items.push_back(new QTreeWidgetItem(QStringList{qs(request->requestName),
                                                      qs(request->RequestBytes->HexText()),
                                                      qs(request->Commentaire)}));
    tree.addTopLevelItems(items);
    paint(tree);
  });
}

/// The median of as many digits at the end of the field, each taken back.
double typeInto(QLineEdit& field) {
  QWidget& window = *field.window();
  field.setFocus();
  field.end(false);
  paint(window);
  std::vector<double> seconds;
  const auto press = [&](int key, const QString& text) {
    return secondsOf([&] {
      QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
      QCoreApplication::sendEvent(&field, &down);
      paint(window);
    });
  };
  for (int i = 0; i < keystrokes; ++i) {
    const QString before = field.text();
    seconds.push_back(press(Qt::Key_5, QStringLiteral("5")));
    if (field.text() != before + QLatin1Char('5')) std::abort();
    press(Qt::Key_Backspace, QString());
  }
  return medianOf(seconds);
}

std::string hexOf(int bytes) {
  std::string hex;
  for (int i = 0; i < bytes; ++i)
    hex += i % 2 == 0 ? "2E" : "90";
  return hex;
}

double typeOnPage(int bytes) {
  Ecu ecu(20);
  RequestItem& request = ecu.add("Long frame", hexOf(bytes));
  for (int i = 0; i < 100; ++i) {
    const std::string name = "Data " + std::to_string(i);
    ecu.database.ActiveTarget->datas()->Add(name)->parent = ecu.database.ActiveTarget.get();
    if (!request.DataPositions) request.DataPositions = std::make_shared<DataPositionItems>();
    DataPositionItem* position = request.DataPositions->Add(name);
    position->parent = &request;
    position->param = true;
    position->StartOctet = 1 + i % bytes;
  }
  UceRequests page(ecu.person);
  page.InitControl();
  page.displayDatas(ecu.database, "");
  page.setEditRequestName(QStringLiteral("Long frame"));
  show(page);
  auto* field = page.findChild<QLineEdit*>(QStringLiteral("TextReqBytes"));
  if (!field || field->text().size() != 2 * bytes) std::abort();
  return typeInto(*field);
}

double typeIntoBareField(int bytes) {
  QWidget window;
  QLineEdit field(&window);
  field.setGeometry(20, 20, width / 2, 30);
  field.setText(qs(hexOf(bytes)));
  show(window);
  return typeInto(field);
}

} // namespace
} // namespace kelmar::bench

int main(int count, char** words) {
  using namespace kelmar::bench;
  QApplication application(count, words);
  const int size = count == 3 ? std::atoi(words[2]) : 0;
  const std::string command = count == 3 ? words[1] : "";
  if (size < 1 || (command != "list" && command != "keystroke")) {
    std::fputs("bench_request_page list|keystroke N\n", stderr);
    return 2;
  }
  const bool list = command == "list";
  std::vector<double> ours, baseline;
  for (int run = 0; run < (list ? fills : 1); ++run) {
    ours.push_back(list ? fillPage(size) : typeOnPage(size));
    baseline.push_back(list ? fillTree(size) : typeIntoBareField(size));
  }
  std::printf("%.9f %.9f\n", leastOf(ours), leastOf(baseline));
}
