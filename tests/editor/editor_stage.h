#pragma once

#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include "editor/frm_rtf_htm.h"
#include "fakes/fake_clipboard.h"
#include "fakes/fake_file_lookup.h"
#include "fakes/fake_shell.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/scripted_messages.h"
#include "fakes/work_at_once.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

/// Answers the question about a changed document; one that is not expected fails the test.
class ScriptedQuestion : public ChangedDocumentQuestion {
 public:
  ~ScriptedQuestion() override {
    if (!m_answers.isEmpty()) QTest::qFail("the question about a changed document was not asked", __FILE__, __LINE__);
  }
  void Expect(DocumentDecision answer) { m_answers.append(answer); }
  DocumentDecision Ask(const QString& path) override {
    asked.append(path);
    if (m_answers.isEmpty()) {
      QTest::qFail("unexpected question about a changed document", __FILE__, __LINE__);
      return DocumentDecision::Cancel;
    }
    return m_answers.takeFirst();
  }
  QStringList asked;

 private:
  QList<DocumentDecision> m_answers;
};

class CountedNotice : public SavingNotice {
 public:
  void Show() override { ++shown; }
  void Close() override { ++closed; }
  int shown = 0;
  int closed = 0;
};

/// A dialog that is answered at once, and a printer that keeps its sheets as pictures.
class PictureDialog : public PrintDialog {
 public:
  class Job : public PrintJob {
   public:
    explicit Job(PictureDialog& dialog) : m_dialog(dialog) {}
    ~Job() override {
      if (m_painter.isActive()) m_painter.end();
    }
    bool StartPage() override {
      if (m_dialog.isOutOfPaper) return false;
      EndSheet();
      m_sheet = QImage(200, 280, QImage::Format_RGB32);
      m_sheet.fill(Qt::white);
      m_painter.begin(&m_sheet);
      m_painter.scale(200.0 / 11906, 200.0 / 11906);
      return true;
    }
    QPainter& Painter() override { return m_painter; }
    Outcome Finish() override {
      EndSheet();
      if (m_dialog.isOutOfPaper) return Failure{Failure::Kind::Other, QStringLiteral("out of paper")};
      return Done{};
    }

   private:
    void EndSheet() {
      if (!m_painter.isActive()) return;
      m_painter.end();
      m_dialog.sheets.append(m_sheet);
    }

    PictureDialog& m_dialog;
    QImage m_sheet;
    QPainter m_painter;
  };

  Answer Show(const PrintOffer& shown) override {
    offer = shown;
    if (error != 0) return {.error = error, .request = {}, .job = nullptr};
    return {.error = 0, .request = request, .job = std::make_unique<Job>(*this)};
  }

  int error = kCancelled;
  PrintRequest request;
  bool isOutOfPaper = false;
  PrintOffer offer;
  QList<QImage> sheets;
};

class PlacedWindow1000 : public WindowGeometry {
 public:
  double Left() const override { return 1500; }
  double Top() const override { return 750; }
  double Width() const override { return 15000; }
  double Height() const override { return 12000; }
  void SetLeft(double) override {}
  void SetTop(double) override {}
  void SetWidth(double) override {}
  void SetHeight(double) override {}
};

class Desktop : public Screen {
 public:
  WorkArea Area() const override { return {0, 0, 28800, 16200}; }
};

/// Everything around the editor, faked.
struct EditorWorld {
  QTemporaryDir folder;
  FakeClipboard clipboard;
  FakeFileLookup files;
  FakeShell shell;
  FakeWindowList windows;
  ScriptedMessages messages;
  ScriptedDialogs dialogs;
  ScriptedQuestion question;
  CountedNotice notice;
  PictureDialog printer;
  WorkAtOnce longWork;
  Settings settings;
  Desktop screen;
  PlacedWindow1000 main;
  ExternalPrograms programs{
      {files, shell, windows, messages}, ProgramSearch(files, QStringLiteral("P:\\Own"), u'\\'), settings};

  EditorServices Services() {
    return {{dialogs, messages, question, notice, longWork}, printer, clipboard, programs, settings, screen, main};
  }
  QString Path(const QString& name) const { return folder.filePath(name); }
  QString Write(const QString& name, const QByteArray& bytes) const {
    QFile file(Path(name));
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
    return file.fileName();
  }
  static QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

/// The editor's window in such a world.
struct EditorStage : EditorWorld {
  frm_RTF_HTM window{Services(), nullptr};

  /// Shows the window as the main window does, without waiting for its end.
  void Open(OpenMode mode = OpenMode::New, const QString& path = {}) {
    window.Document().Start(mode, path);
    window.resize(900, 600);
    window.show();
    window.activateWindow();
    Text().setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
  }
  RichTextControl& Text() { return window.TextControl(); }
  EditorDocument& Document() { return window.Document(); }
};

}  // namespace snipdeck
