#pragma once

#include <QList>
#include <QTest>

#include "platform/file_dialogs.h"
#include "platform/font_colour_dialogs.h"

namespace snipdeck {

/// File, font and colour dialogs that a test announces beforehand, with the answers. An unexpected one fails the test,
/// and so does an expected one that does not come, or one that shows something else.
class ScriptedDialogs : public FileDialogs, public FontColourDialogs {
 public:
  ~ScriptedDialogs() override {
    for (const Step& step : m_expected) QTest::qFail(qPrintable("dialog not shown: " + step.words), __FILE__, __LINE__);
  }

  /// `answer` is the name that the user chooses; "" cancels.
  void ExpectOpen(const FileRequest& request, const QString& answer) {
    Expect(Words("open", request), {.name = answer});
  }
  void ExpectSave(const FileRequest& request, const QString& answer) {
    Expect(Words("save", request), {.name = answer});
  }
  void ExpectFolder(const QString& title, const QString& start, const QString& answer) {
    Expect(Words(title, start), {.name = answer});
  }
  void ExpectFont(const FontChoice& preset, const std::optional<FontChoice>& answer) {
    Expect(Words(preset), {.font = answer});
  }
  void ExpectColour(OleColour start, bool openFull, OleColour answer) {
    Expect(Words(start, openFull), {.colour = answer});
  }

  QString OpenFile(const FileRequest& request) override { return Answer(Words("open", request)).name; }
  QString SaveFile(const FileRequest& request) override { return Answer(Words("save", request)).name; }
  QString BrowseForFolder(const QString& title, const QString& start) override {
    return Answer(Words(title, start)).name;
  }
  std::optional<FontChoice> ChooseFont(const FontChoice& preset) override { return Answer(Words(preset)).font; }
  OleColour PickColour(OleColour start, bool openFull) override { return Answer(Words(start, openFull)).colour; }

 private:
  struct Reply {
    QString name = {};
    std::optional<FontChoice> font = {};
    OleColour colour = kNoColour;
  };
  struct Step {
    QString words;
    Reply reply;
  };

  static QString Words(const char* kind, const FileRequest& request) {
    QString filters;
    for (const FileFilter& filter : request.filters) filters += filter.label + '|' + filter.pattern + '|';
    return QStringLiteral("%1 [%2] name %3, filters %4, extension [%5]")
        .arg(QLatin1String(kind), request.title, request.fileName.value_or(QStringLiteral("(the last)")), filters,
             request.defaultExtension);
  }
  static QString Words(const QString& title, const QString& start) {
    return QStringLiteral("folder [%1] from %2").arg(title, start);
  }
  static QString Words(const FontChoice& preset) {
    return QStringLiteral("font %1, %2 points, bold %3").arg(preset.name).arg(preset.points).arg(preset.bold);
  }
  static QString Words(OleColour start, bool openFull) {
    return QStringLiteral("colour %1, full %2").arg(start).arg(openFull);
  }

  void Expect(const QString& words, const Reply& reply) { m_expected.append({words, reply}); }
  Reply Answer(const QString& words) {
    if (m_expected.isEmpty()) {
      QTest::qFail(qPrintable("unexpected dialog: " + words), __FILE__, __LINE__);
      return {};
    }
    const Step step = m_expected.takeFirst();
    if (step.words != words) {
      QTest::qFail(qPrintable("shown: " + words + "\nexpected: " + step.words), __FILE__, __LINE__);
    }
    return step.reply;
  }

  QList<Step> m_expected;
};

}  // namespace snipdeck
