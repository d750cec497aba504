#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QFileInfo>

#include "editor/editor_stage.h"
#include "richtext/document_file.h"
#include "richtext/document_page.h"

namespace snipdeck {

using namespace Qt::StringLiterals;

/// Files cannot grow while this lives.
class NoRoom {
 public:
  explicit NoRoom(bool isFull) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    if (!isFull) return;
    signal(SIGXFSZ, SIG_IGN);
    const rlimit none{0, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
  }
  ~NoRoom() { setrlimit(RLIMIT_FSIZE, &m_before); }
  NoRoom(const NoRoom&) = delete;
  NoRoom& operator=(const NoRoom&) = delete;

 private:
  rlimit m_before{};
};

class EditorDocumentTest : public QObject {
  Q_OBJECT

 private:
  static FileRequest OpenRequest() {
    return {
        u"Load file from disk"_s,
        u""_s,
        {{u"RTF files (*.rtf)"_s, u"*.rtf"_s}, {u"Text files (*.txt)"_s, u"*.txt"_s}, {u"All files (*.*)"_s, u"*.*"_s}},
        {}};
  }
  static FileRequest SaveRequest(const QString& name) {
    return {u"Save text to disk"_s, name, {{u"All files (*.*)"_s, u"*.*"_s}}, {}};
  }
  static Message SaveError() {
    return {.text = u"Error saving file directly.\r\n\r\nPlease use \"Save as\" function."_s,
            .icon = MessageIcon::Exclamation};
  }

 private slots:
  void EndingDecidesTheFormatBothWays_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QByteArray>("beginning");
    const QByteArray rtf = "{\\rtf1 a{\\b b}c}";
    const QByteArray html = "<p>a<b>b</b>c</p>";
    QTest::newRow("rtf") << u"x.rTf"_s << rtf << u"abc"_s << QByteArray("{\\rtf1");
    QTest::newRow("htm") << u"x.HTM"_s << html << u"abc"_s << QByteArray("<!DOCTYPE");
    QTest::newRow("html") << u"page.Html"_s << html << u"abc"_s << QByteArray("<!DOCTYPE");
    QTest::newRow("docm is text") << u"Report.docm"_s << html << QString::fromLatin1(html) << html;
    QTest::newRow("xml is text") << u"x.xml"_s << html << QString::fromLatin1(html) << html;
    QTest::newRow("no dot") << u"rtf"_s << rtf << QString::fromLatin1(rtf) << rtf;
    QTest::newRow("text") << u"x.txt"_s << QByteArray("\xE2\x82\xAC 5\n") << u"\u20AC 5\n"_s
                          << QByteArray("\xE2\x82\xAC 5");
  }
  void EndingDecidesTheFormatBothWays() {
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, shown);
    QFETCH(QByteArray, beginning);
    EditorStage stage;
    const QString path = stage.Write(name, bytes);
    stage.Open(OpenMode::File, path);
    QCOMPARE(stage.Text().Text(), shown);
    QCOMPARE(stage.window.windowTitle(), "File: "_L1 + path);
    QCOMPARE(stage.Document().ChangedMark(), 0);
    QVERIFY(!stage.Text().document()->isUndoAvailable());

    stage.Document().Save();
    const QByteArray written = EditorStage::Read(path);
    QVERIFY2(written.startsWith(beginning), written.first(std::min<qsizetype>(written.size(), 80)).constData());
    QCOMPARE(stage.notice.shown, 1);
    QCOMPARE(stage.notice.closed, 1);
  }

  void WordDocumentsTravel() {
    EditorStage stage;
    stage.Open();
    QTest::keyClicks(&stage.Text(), u"word for word"_s);
    const QString path = stage.Path(u"Report.DOCX"_s);
    stage.dialogs.ExpectSave(SaveRequest(u"Untitled.rtf"_s), path);
    stage.Document().Save();
    QVERIFY(EditorStage::Read(path).startsWith("PK"));
    stage.Document().Start(OpenMode::File, path);
    QCOMPARE(stage.Text().Text().trimmed(), u"word for word"_s);
  }

  void PageOfTheFileIsShownAndKept() {
    EditorStage stage;
    const QString own = stage.Write(u"own.rtf"_s, "{\\rtf1\\paperw8000\\paperh9000\\margl700 a}");
    stage.Open(OpenMode::File, own);
    QCOMPARE(stage.Text().PageWidth(), 8000);
    QCOMPARE(stage.Text().PageHeight(), 9000);
    QCOMPARE(stage.Text().PageMargins(0), 700);
    QCOMPARE(stage.Text().PageMargins(2), 1440);
    stage.Text().SetPageMargins(0, 900);
    QCOMPARE(stage.Document().ChangedMark(), 1);
    stage.Document().Save();
    stage.Document().Start(OpenMode::File, own);
    QCOMPARE(stage.Text().PageMargins(0), 900);
    QCOMPARE(stage.Text().PageWidth(), 8000);

    // One that says nothing, behind it.
    stage.Document().Start(OpenMode::File, stage.Write(u"plain.rtf"_s, "{\\rtf1 a}"));
    for (int side = 0; side < 4; ++side) QCOMPARE(stage.Text().PageMargins(side), 1440);
    QCOMPARE(stage.Text().PageWidth(), 11906);
  }

  void HeadersAndFootersOfTheFileAreKept_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("savedAs");
    const QByteArray row = "\\trowd\\cellx3000\\intbl text\\cell\\row";
    QTest::newRow("rtf") << QByteArray("text") << u"b.rtf"_s;
    QTest::newRow("docx") << QByteArray("text") << u"b.docx"_s;
    QTest::newRow("a table") << row << u"b.rtf"_s;
  }
  void HeadersAndFootersOfTheFileAreKept() {
    QFETCH(QByteArray, body);
    QFETCH(QString, savedAs);
    EditorStage stage;
    const QString path = stage.Write(u"a.rtf"_s, "{\\rtf1{\\header one\\tab\\u8364 ?\\par two\\par}{\\footer foot}" + body + "}");
    const QString saved = stage.Path(savedAs);
    const auto texts = [](const QString& name, FileFormat format) {
      const Result<RichText> read = ReadDocumentFile(name, format);
      return read ? PageTextsOf(read.Value().Page()) : PageTexts{u"unreadable"_s, {}};
    };
    stage.Open(OpenMode::File, path);
    QCOMPARE(stage.Text().Text().trimmed(), u"text"_s);
    stage.dialogs.ExpectSave(SaveRequest(path), saved);
    stage.Document().SaveAs();
    const PageTexts kept = texts(saved, savedAs.endsWith(u"rtf"_s) ? FileFormat::Rtf : FileFormat::Docx);
    QCOMPARE(kept.header, u"one\t\u20AC\ntwo"_s);
    QCOMPARE(kept.footer, u"foot"_s);

    // Behind it, neither in a text that has none nor in what is copied.
    stage.Text().selectAll();
    QVERIFY(!stage.Text().SelRichText().Rtf().contains("foot"));
    stage.Document().New();
    stage.dialogs.ExpectSave(SaveRequest(u"Untitled.rtf"_s), path);
    stage.Document().Save();
    QVERIFY(texts(path, FileFormat::Rtf) == PageTexts());
  }

  void CaptionsAndNamesFollowTheCommands() {
    EditorStage stage;
    stage.Open();
    QCOMPARE(stage.window.windowTitle(), u"File: Untitled.rtf"_s);
    const QString path = stage.Write(u"a.rtf"_s, "{\\rtf1 a}");
    stage.dialogs.ExpectOpen(OpenRequest(), path);
    stage.Document().Open();
    QCOMPARE(stage.window.windowTitle(), path);
    const QString other = stage.Path(u"b.txt"_s);
    stage.dialogs.ExpectSave(SaveRequest(path), other);
    stage.Document().SaveAs();
    QCOMPARE(stage.window.windowTitle(), "File :  "_L1 + other);
    QCOMPARE(EditorStage::Read(other), QByteArray("a"));
    stage.Document().New();
    QCOMPARE(stage.window.windowTitle(), u"Untitled.rtf"_s);
    QCOMPARE(stage.Text().Text(), QString());

    // A cancelled dialog changes nothing.
    stage.Text().SetText(u"kept"_s);
    stage.question.Expect(DocumentDecision::Discard);
    stage.dialogs.ExpectOpen(OpenRequest(), {});
    stage.Document().Open();
    QCOMPARE(stage.Text().Text(), u"kept"_s);
    QCOMPARE(stage.Document().ChangedMark(), 1);
  }

  void UntitledInThePathAsksForAName() {
    EditorStage stage;
    QVERIFY(QDir(stage.folder.path()).mkdir(u"Untitled things"_s));
    const QString inside = stage.Write(u"Untitled things/a.txt"_s, "a");
    stage.Open(OpenMode::File, inside);
    stage.dialogs.ExpectSave(SaveRequest(inside), {});
    stage.Document().Save();
    const QString small = stage.Write(u"untitled.txt"_s, "b");
    stage.Document().Start(OpenMode::File, small);
    stage.Text().AppendText(u"c"_s);
    stage.Document().Save();
    QCOMPARE(EditorStage::Read(small), QByteArray("bc"));
  }

  void MissingFileIsToldAndLeavesAnEmptyText() {
    EditorStage stage;
    stage.Open(OpenMode::File, stage.Write(u"a.txt"_s, "before"));
    const QString lines =
        u"Cannot locate the following program/file:\r\n\r\n%1\r\n\r\nCheck the path before the name and "
        "see whether\r\nthe program/file exists on your hard disk.\r\n(the error may be due to an "
        "unavailable\r\nminor option of the Quillmark suite)"_s;
    for (const QString& path : {stage.Path(u"gone.rtf"_s), QString()}) {
      stage.messages.Expect({.text = lines.arg(path.isEmpty() ? u"( Filename empty! )"_s : path),
                             .icon = MessageIcon::Critical,
                             .caption = QDir::toNativeSeparators(QDir::currentPath())},
                            MessageAnswer::Ok);
      stage.Document().Start(OpenMode::File, path);
      QCOMPARE(stage.Text().Text(), QString());
      QCOMPARE(stage.Document().FileName(), path);
    }
  }

  void ChangedDocumentIsNeverLostUnasked_data() {
    QTest::addColumn<DocumentDecision>("answer");
    QTest::addColumn<QString>("savedAs");
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("cancel") << DocumentDecision::Cancel << u"-"_s << false;
    QTest::newRow("discard") << DocumentDecision::Discard << u"-"_s << true;
    QTest::newRow("directly, so under a name") << DocumentDecision::SaveDirectly << u"n.txt"_s << true;
    QTest::newRow("directly, no name") << DocumentDecision::SaveDirectly << u""_s << false;
    QTest::newRow("under a name") << DocumentDecision::SaveAs << u"n.txt"_s << true;
    QTest::newRow("no name") << DocumentDecision::SaveAs << u""_s << false;
  }
  void ChangedDocumentIsNeverLostUnasked() {
    QFETCH(DocumentDecision, answer);
    QFETCH(QString, savedAs);
    QFETCH(bool, goesOn);
    EditorStage stage;
    stage.Open();
    QTest::keyClicks(&stage.Text(), u"new"_s);
    stage.question.Expect(answer);
    if (savedAs != u"-"_s)
      stage.dialogs.ExpectSave(SaveRequest(u"Untitled.rtf"_s), savedAs.isEmpty() ? QString() : stage.Path(savedAs));
    QCOMPARE(stage.window.close(), goesOn);
    QCOMPARE(stage.question.asked, QStringList{u"Untitled.rtf"_s});
    QCOMPARE(stage.window.isVisible(), !goesOn);
    QCOMPARE(QFileInfo::exists(stage.Path(u"n.txt"_s)), goesOn && savedAs == u"n.txt"_s);
    QVERIFY(stage.settings.editorWidth > 0);  // also when the close was cancelled
  }

  void FailedSaveChangesNothing_data() {
    QTest::addColumn<QString>("target");
    QTest::newRow("a folder of that name") << u"folder.rtf"_s;
    QTest::newRow("no such folder") << u"gone/away.txt"_s;
    QTest::newRow("a pipe") << u"pipe"_s;
    QTest::newRow("no room") << u"full.rtf"_s;
    QTest::newRow("no name at all") << QString();
  }
  void FailedSaveChangesNothing() {
    QFETCH(QString, target);
    EditorStage stage;
    QVERIFY(QDir(stage.folder.path()).mkpath(u"folder.rtf"_s));
    QCOMPARE(mkfifo(qPrintable(stage.Path(u"pipe"_s)), 0600), 0);
    const QString old = stage.Write(u"old.rtf"_s, "{\\rtf1 old}");
    stage.Open(OpenMode::File, old);
    QTest::keyClicks(&stage.Text(), u"n"_s);
    const QString path = target.isEmpty() ? target : stage.Path(target);
    if (target.isEmpty()) {
      stage.Document().Resume(QString(), [&] { stage.Text().SetText(u"nold"_s); });
    } else {
      stage.dialogs.ExpectSave(SaveRequest(old), path);
    }
    stage.messages.Expect(SaveError(), MessageAnswer::Ok);
    const NoRoom noRoom(target == u"full.rtf"_s);
    if (target.isEmpty()) {
      stage.Document().Save();
    } else {
      stage.Document().SaveAs();
      QCOMPARE(stage.Document().FileName(), old);
      QCOMPARE(stage.window.windowTitle(), "File: "_L1 + old);
    }
    QCOMPARE(stage.Document().ChangedMark(), 1);
    QCOMPARE(stage.Text().Text(), u"nold"_s);
    QCOMPARE(stage.notice.closed, 1);
    QCOMPARE(EditorStage::Read(old), QByteArray("{\\rtf1 old}"));
    QVERIFY(!QGuiApplication::overrideCursor());
  }

  void UnreadableFileIsNotOverwrittenByNothing() {
    EditorStage stage;
    const QString broken = stage.Write(u"broken.docx"_s, "not a package");
    const Message notNow = {.text = u"Error executing command just now.\r\n\r\nTry again in a moment."_s,
                            .icon = MessageIcon::Exclamation};
    stage.messages.Expect(notNow, MessageAnswer::Ok);
    stage.Open(OpenMode::File, broken);
    stage.dialogs.ExpectSave(SaveRequest(broken), {});
    stage.Document().Save();
    QCOMPARE(EditorStage::Read(broken), QByteArray("not a package"));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::EditorDocumentTest)
#include "editor_document_test.moc"
