#pragma once

#include <QList>
#include <QString>

#include "richtext/html/css_filter.h"

namespace snipdeck {

/// An element whose end has not come yet.
struct OpenElement {
  QString name;
  QString startTag;  ///< As written.
  QString endTag;
  TextStyle style;
  int items = 0;  ///< Of a list, since it was begun or went on as another one.
  int next = 1;   ///< The number of its next item.
  bool isBlock = false;
  bool isHidden = false;
  bool isStray = false;  ///< In a table and in none of its cells.
};

/// The outermost first.
using OpenElements = QList<OpenElement>;

bool IsCell(const QString& name);
bool IsPartOfTable(const QString& name);
bool IsInRow(const OpenElements& open);
bool IsInList(const OpenElements& open);
/// Whether what follows is in a table and in none of its cells.
bool IsBetweenCells(const OpenElements& open);
/// How many of the elements stay open when one of this name begins.
qsizetype StayOpenBefore(const QString& name, const OpenElements& open);
/// How many of the elements stay open behind an end tag of this name.
qsizetype StayOpenBehind(const QString& name, const OpenElements& open);

}  // namespace snipdeck
