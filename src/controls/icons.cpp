// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <functional>
#include <map>

namespace kelmar {

namespace {

/// What a drawing works with: a field of 24 by 24 units and the colours of the moment.
struct Canvas {
  QPainter& painter;
  QColor ink;   // outlines
  QColor paper; // inside of things
  bool dark;
  bool faint; // disabled

  /// Colour of lines in the hue, of the same weight on light and on dark.
  QColor line(int hue) const {
    if (faint) return ink;
    const bool bright = hue > 40 && hue < 200; // yellow to cyan look lighter than they are
    return QColor::fromHsl(hue, dark ? 140 : 175, dark ? 165 : bright ? 90 : 115);
  }
  /// Colour of areas in the hue; the letters on them are in onAccent.
  QColor accent(int hue) const { return faint ? paper : line(hue); }
  QColor onAccent() const { return faint ? ink : dark ? QColor(20, 20, 22) : QColor(Qt::white); }
  /// For what is yellow in this world.
  QColor gold() const { return faint ? paper : QColor(236, 184, 62); }
  void outline(double width = 1.7) const {
    painter.setPen(QPen(ink, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  void fill(const QColor& colour) const { painter.setBrush(colour); }
  void hollow() const { painter.setBrush(Qt::NoBrush); }
  void lines(std::initializer_list<QPointF> points) const {
    painter.drawPolyline(QPolygonF(QList<QPointF>(points)));
  }
  void shape(std::initializer_list<QPointF> points) const {
    painter.drawPolygon(QPolygonF(QList<QPointF>(points)));
  }
};

constexpr int blue = 212, green = 135, red = 2, orange = 26, violet = 275, teal = 180;

void drawFolder(const Canvas& c, const QColor& colour) {
  c.fill(colour);
  c.shape({{3, 19}, {3, 5.5}, {9, 5.5}, {11, 8}, {21, 8}, {21, 19}});
}

void drawOpen(const Canvas& c) {
  drawFolder(c, c.gold());
  c.fill(c.paper);
  c.shape({{3, 19}, {6.5, 11.5}, {23, 11.5}, {19.5, 19}});
}

void drawSave(const Canvas& c) {
  c.fill(c.accent(blue));
  c.shape({{4, 4}, {17, 4}, {20, 7}, {20, 20}, {4, 20}});
  c.fill(c.paper);
  c.painter.drawRect(QRectF(8, 4, 7.5, 5));
  c.painter.drawRect(QRectF(7, 13, 10, 7));
}

void drawSaveAs(const Canvas& c) {
  drawSave(c);
  c.fill(c.accent(orange));
  c.shape({{12, 22.5}, {12.7, 18.8}, {19.7, 11.8}, {22.7, 14.8}, {15.7, 21.8}});
}

void drawCancel(const Canvas& c) {
  QPainterPath arrow;
  arrow.moveTo(5, 9);
  arrow.lineTo(14, 9);
  arrow.cubicTo(21.5, 9, 21.5, 19, 14, 19);
  arrow.lineTo(8, 19);
  c.hollow();
  c.painter.setPen(QPen(c.line(red), 2.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  c.painter.drawPath(arrow);
  c.lines({{9.5, 4.5}, {5, 9}, {9.5, 13.5}});
}

void drawValid(const Canvas& c) {
  c.hollow();
  c.painter.setPen(QPen(c.line(green), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  c.lines({{4.5, 13}, {10, 18.5}, {20, 6}});
}

void drawNew(const Canvas& c) {
  c.fill(c.paper);
  c.shape({{5, 3}, {14, 3}, {19, 8}, {19, 21}, {5, 21}});
  c.lines({{14, 3}, {14, 8}, {19, 8}});
  c.painter.setPen(QPen(c.line(green), 2.4, Qt::SolidLine, Qt::RoundCap));
  c.lines({{12, 10.5}, {12, 17.5}});
  c.lines({{8.5, 14}, {15.5, 14}});
}

void drawVehicle(const Canvas& c) {
  c.fill(c.accent(teal));
  QPainterPath body;
  body.moveTo(2.5, 17);
  body.lineTo(2.5, 13);
  body.lineTo(5, 11.5);
  body.lineTo(7.5, 6.5);
  body.lineTo(16, 6.5);
  body.lineTo(19, 11.5);
  body.lineTo(21.5, 12.5);
  body.lineTo(21.5, 17);
  body.closeSubpath();
  c.painter.drawPath(body);
  c.fill(c.paper);
  c.shape({{7.5, 11.3}, {9, 8.5}, {14.7, 8.5}, {16.4, 11.3}});
  c.painter.drawEllipse(QPointF(7, 17.3), 2.5, 2.5);
  c.painter.drawEllipse(QPointF(17, 17.3), 2.5, 2.5);
}

void drawSearch(const Canvas& c) {
  c.fill(c.paper);
  c.painter.drawEllipse(QPointF(10, 10), 6.3, 6.3);
  c.painter.setPen(QPen(c.line(blue), 3, Qt::SolidLine, Qt::RoundCap));
  c.lines({{15.3, 15.3}, {20.5, 20.5}});
}

void drawClear(const Canvas& c) {
  c.hollow();
  c.painter.setPen(QPen(c.ink, 2.6, Qt::SolidLine, Qt::RoundCap));
  c.lines({{6, 6}, {18, 18}});
  c.lines({{18, 6}, {6, 18}});
}

void drawReload(const Canvas& c) {
  c.hollow();
  c.painter.setPen(QPen(c.line(green), 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  c.painter.drawArc(QRectF(4.5, 4.5, 15, 15), 30 * 16, 290 * 16);
  c.lines({{19.8, 3.8}, {18.6, 8.6}, {13.8, 7.4}});
}

void drawWarning(const Canvas& c) {
  c.fill(c.gold());
  c.shape({{12, 3.5}, {22, 20.5}, {2, 20.5}});
  c.painter.setPen(QPen(c.faint ? c.ink : QColor(30, 24, 0), 2.2, Qt::SolidLine, Qt::RoundCap));
  c.lines({{12, 9.5}, {12, 14.5}});
  c.lines({{12, 17.6}, {12, 17.7}});
}

void drawAdd(const Canvas& c) {
  c.hollow();
  c.painter.setPen(QPen(c.line(green), 3.2, Qt::SolidLine, Qt::RoundCap));
  c.lines({{12, 5}, {12, 19}});
  c.lines({{5, 12}, {19, 12}});
}

void drawRename(const Canvas& c) {
  c.fill(c.paper);
  c.painter.drawRect(QRectF(2.5, 8, 19, 9));
  c.painter.setPen(QPen(c.line(blue), 2, Qt::SolidLine, Qt::RoundCap));
  c.lines({{5.5, 12.5}, {10.5, 12.5}});
  c.outline();
  c.lines({{14.5, 5}, {14.5, 20}});
  c.lines({{12.5, 4}, {14.5, 5}, {16.5, 4}});
  c.lines({{12.5, 21}, {14.5, 20}, {16.5, 21}});
}

void drawCut(const Canvas& c) {
  c.hollow();
  c.outline(2);
  c.lines({{7, 3}, {15.5, 16}});
  c.lines({{17, 3}, {8.5, 16}});
  c.painter.setPen(QPen(c.line(red), 2.2));
  c.painter.drawEllipse(QPointF(6.8, 18), 2.7, 2.7);
  c.painter.drawEllipse(QPointF(17.2, 18), 2.7, 2.7);
}

void drawCopy(const Canvas& c) {
  c.fill(c.paper);
  c.painter.drawRect(QRectF(4, 3, 11, 14));
  c.painter.drawRect(QRectF(9, 7, 11, 14));
  c.painter.setPen(QPen(c.line(blue), 1.5));
  for (const double y : {11.0, 14.0, 17.0})
    c.lines({{11.5, y}, {17.5, y}});
}

void drawPaste(const Canvas& c) {
  c.fill(c.gold());
  c.painter.drawRect(QRectF(4, 4.5, 16, 17));
  c.fill(c.paper);
  c.painter.drawRect(QRectF(7, 9, 10, 10));
  c.painter.drawRect(QRectF(8.5, 2.5, 7, 4));
}

/// A kind of data by its sign.
void drawSign(const Canvas& c, int hue, const QString& sign) {
  c.fill(c.accent(hue));
  c.painter.drawRoundedRect(QRectF(2, 4, 20, 16), 3, 3);
  QFont font = QGuiApplication::font();
  font.setPixelSize(sign.size() > 1 ? 12 : 15);
  font.setBold(true);
  c.painter.setFont(font);
  c.painter.setPen(c.onAccent());
  c.painter.drawText(QRectF(1, 4, 22, 16), Qt::AlignCenter, sign);
}

void drawList(const Canvas& c) {
  c.fill(c.accent(violet));
  c.painter.drawRoundedRect(QRectF(2, 4, 20, 16), 3, 3);
  c.painter.setPen(QPen(c.onAccent(), 1.8, Qt::SolidLine, Qt::RoundCap));
  for (const double y : {8.5, 12.0, 15.5}) {
    c.lines({{6, y}, {6.1, y}});
    c.lines({{9.5, y}, {18, y}});
  }
}

void drawHelp(const Canvas& c) {
  c.fill(c.accent(blue));
  c.painter.drawEllipse(QPointF(12, 12), 9, 9);
  c.hollow();
  QPainterPath mark;
  mark.moveTo(9, 9.5);
  mark.cubicTo(9, 5.5, 15, 5.5, 15, 9.5);
  mark.cubicTo(15, 12, 12, 11.8, 12, 14.2);
  c.painter.setPen(QPen(c.onAccent(), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  c.painter.drawPath(mark);
  c.lines({{12, 17.3}, {12, 17.4}});
}

/// A control unit: a case with pins, in the colour of its protocol, with its letters.
void drawEcu(const Canvas& c, int hue, const QString& letters) {
  c.outline(1.5);
  for (const double x : {6.5, 12.0, 17.5}) {
    c.lines({{x, 2.2}, {x, 5}});
    c.lines({{x, 19}, {x, 21.8}});
  }
  const QColor body = hue < 0 ? c.paper : c.accent(hue);
  c.fill(body);
  c.painter.drawRoundedRect(QRectF(2, 4.8, 20, 14.4), 2, 2);
  QFont font = QGuiApplication::font();
  font.setPixelSize(letters.size() > 1 ? 11 : 14);
  font.setBold(true);
  c.painter.setFont(font);
  c.painter.setPen(hue < 0 ? c.ink : c.onAccent());
  c.painter.drawText(QRectF(1, 4.8, 22, 14.4), Qt::AlignCenter, letters);
}

using Drawing = std::function<void(const Canvas&)>;

const std::map<std::string, Drawing, std::less<>>& drawings() {
  static const auto folder = [](const Canvas& c) { drawFolder(c, c.gold()); };
  static const auto project = [](const Canvas& c) { drawFolder(c, c.accent(violet)); };
  static const auto ecu = [](int hue, const char* letters) {
    return [hue, text = QString::fromLatin1(letters)](const Canvas& c) { drawEcu(c, hue, text); };
  };
  static const auto sign = [](int hue, const char* text) {
    return
        [hue, letters = QString::fromLatin1(text)](const Canvas& c) { drawSign(c, hue, letters); };
  };
  static const std::map<std::string, Drawing, std::less<>> table = {
      {"open", drawOpen},
      {"save", drawSave},
      {"saveas", drawSaveAs},
      {"cancel", drawCancel},
      {"valid", drawValid},
      {"new", drawNew},
      {"folder", folder},
      {"project", project},
      {"vehicle", drawVehicle},
      {"search", drawSearch},
      {"clear", drawClear},
      {"reload", drawReload},
      {"warning", drawWarning},
      {"help", drawHelp},
      {"add", drawAdd},
      {"rename", drawRename},
      {"find", drawSearch},
      {"cut", drawCut},
      {"dm", sign(green, "DM")},
      {"manual", sign(orange, "M")},
      {"dmmanual", sign(violet, "DM")},
      {"ref", sign(blue, "R")},
      {"unref",
       [](const Canvas& c) {
         drawSign(c, blue, QStringLiteral("R"));
         c.painter.setPen(QPen(c.line(red), 2.4));
         c.lines({{3, 21}, {21, 3}});
       }},
      {"copy", drawCopy},
      {"paste", drawPaste},
      {"numeric", sign(blue, "1")},
      {"list", drawList},
      {"ascii", sign(green, "A")},
      {"hexa", sign(orange, "0x")},
      {"ecu-iso", ecu(orange, "I")},
      {"ecu-kwp", ecu(violet, "K")},
      {"ecu-can", ecu(blue, "C")},
      {"ecu-canfd", ecu(teal, "FD")},
      {"ecu-ip", ecu(green, "IP")},
      {"ecu-unknown", ecu(-1, "?")},
  };
  return table;
}

class DrawnIcon : public QIconEngine {
 public:
  explicit DrawnIcon(const Drawing& drawing) : drawing_(drawing) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const QPalette palette = QGuiApplication::palette();
    QColor ink = palette.color(QPalette::ButtonText);
    QColor paper = palette.color(QPalette::Base);
    if (mode == QIcon::Disabled) {
      // Mixed and not transparent: lines that cross would show.
      paper = palette.color(QPalette::Button);
      ink = QColor((ink.red() + 2 * paper.red()) / 3, (ink.green() + 2 * paper.green()) / 3,
                   (ink.blue() + 2 * paper.blue()) / 3);
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const double side = std::min(rect.width(), rect.height());
    painter->translate(rect.center() + QPointF(0.5, 0.5) - QPointF(side, side) / 2);
    painter->scale(side / 24, side / 24);
    const Canvas canvas{*painter, ink, paper, palette.color(QPalette::Base).lightness() < 128,
                        mode == QIcon::Disabled};
    canvas.outline();
    drawing_(canvas);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap result(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return result;
  }

  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
  bool isNull() override { return false; }
  QIconEngine* clone() const override { return new DrawnIcon(drawing_); }

 private:
  const Drawing& drawing_; // of the table, which stays
};

} // namespace

QIcon icon(std::string_view key) {
  static std::map<std::string, QIcon, std::less<>> made;
  if (const auto known = made.find(key); known != made.end()) return known->second;
  if (key == "none") {
    QPixmap empty(16, 16);
    empty.fill(Qt::transparent);
    return made.emplace(key, QIcon(empty)).first->second;
  }
  const auto found = drawings().find(key);
  if (found == drawings().end()) return {};
  return made.emplace(key, QIcon(new DrawnIcon(found->second))).first->second;
}

std::vector<std::string> iconKeys() {
  std::vector<std::string> keys;
  for (const auto& [key, drawing] : drawings())
    keys.push_back(key);
  return keys;
}

} // namespace kelmar
