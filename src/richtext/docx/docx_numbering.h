#pragma once

#include <QHash>
#include <QTextBlockFormat>

#include "richtext/ooxml/xml_part.h"
#include "richtext/rtf/rtf_list_table.h"

namespace snipdeck {

/// The lists that a document defines, by the numbers that its paragraphs use.
class DocxNumbering : public ListDefinitions {
 public:
  void Read(const QByteArray& part);

  const RtfList* Find(int number) const override;
  bool Restarts(int number) const override;
  /// The level of list `number` that belongs to a style of paragraphs; `missing` when none does.
  int LevelOfStyle(int number, const QString& styleId, int missing) const;
  /// The indents of a level.
  QTextBlockFormat Indents(int number, int level) const;

 private:
  struct Level {
    RtfListLevel layout;
    QString style;
    QTextBlockFormat indents;
  };
  using Levels = std::array<Level, kListLevels>;
  struct List {
    RtfList list;
    Levels levels;
    bool restarts = false;
  };
  void ReadAbstract(XmlPart& xml);
  void ReadNumber(XmlPart& xml);
  void ReadOverride(XmlPart& xml, List& list);
  static void ReadLevel(XmlPart& xml, Level& level);

  QHash<int, Levels> m_abstract;
  QHash<int, List> m_lists;
};

}  // namespace snipdeck
