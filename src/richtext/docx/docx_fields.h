#pragma once

#include <vector>

#include <QString>

namespace snipdeck {

/// The fields that the text is in, the outermost first: what was asked for does not show, what came out of it does.
class DocxFields {
 public:
  void Begin();
  /// The result follows.
  void Separate();
  void End();
  void AddInstruction(QStringView text);
  /// False while an instruction is read.
  bool ShowsText() const;
  /// The address that the innermost hyperlink leads to; empty outside of hyperlinks.
  QString Link() const;

 private:
  struct Field {
    QString instruction;
    QString link;
    bool inResult = false;
  };
  std::vector<Field> m_fields;
};

}  // namespace snipdeck
