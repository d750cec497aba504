#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

#include "clipformats/custom_clipboard.h"
#include "platform/x11/answer.h"
#include "platform/x11/owner.h"
#include "platform/x11/x11_clipboard_access.h"
#include "platform/x11/x11_clipboard_functions.h"

namespace snipdeck {

namespace {

constexpr WindowHandle kWindow = 7;
constexpr WaitLimits kShortWait{.stallMs = 300, .totalMs = 900, .maxBytes = 1 << 20};

/// What another program gets when it pastes.
QByteArray Pasted(const QString& target) {
  QProcess xclip;
  xclip.start("xclip", {"-selection", "clipboard", "-out", "-target", target});
  QSignalSpy finished(&xclip, &QProcess::finished);
  if (!finished.wait(5000)) return "xclip got no answer";
  return xclip.readAllStandardOutput();
}

/// A clipboard manager in this process, which answers or not.
class Manager : public QObject {
 public:
  Manager(bool answers) {
    xcb_set_selection_owner(m_connection.Raw(), m_connection.Window(), m_connection.Atom("CLIPBOARD_MANAGER"),
                            XCB_CURRENT_TIME);
    m_connection.Flush();
    if (answers) connect(&m_connection, &XConnection::EventArrived, this, &Manager::HandleEvent);
  }
  int asked = 0;

 private:
  void HandleEvent(const xcb_generic_event_t* event) {
    if ((event->response_type & 0x7F) != XCB_SELECTION_REQUEST) return;
    const auto& request = *reinterpret_cast<const xcb_selection_request_event_t*>(event);
    ++asked;
    TellAnswered(m_connection, request);
  }

  XConnection m_connection;
};

}  // namespace

/// Against a real X server, with programs of their own on the other side.
class X11ClipboardTest : public QObject {
  Q_OBJECT

  struct Fixture {
    PresentContents contents{kShortWait};
    X11ClipboardFunctions functions{contents};
    X11ClipboardAccess access{contents, QStringLiteral(HOLDER_PROGRAM)};
    cCustomClipboard clipboard{functions, access};

    QByteArray Block(ClipboardFormat format) {
      ByteArray bytes;
      clipboard.ClipboardOpen(kWindow);
      const bool isThere = clipboard.GetBinaryData(format, bytes);
      clipboard.ClipboardClose();
      return isThere ? QByteArray(reinterpret_cast<const char*>(bytes.Entries().data()),
                                  static_cast<qsizetype>(bytes.Entries().size()))
                     : QByteArray();
    }
    QStringList Names() {
      QStringList names;
      for (int i = 1; i <= clipboard.GetCurrentFormats(kWindow); ++i) names << clipboard.GetCurrentFormatName(i);
      return names;
    }
  };

 private slots:
  void initTestCase() {
    if (QStandardPaths::findExecutable("xclip").isEmpty()) QSKIP("xclip, the program that pastes, is not installed");
  }
  void init() { QGuiApplication::clipboard()->clear(); }

  void ListsAndReadsEveryFormat() {
    Fixture f;
    Owner owner({"UTF8_STRING:caf\u00e9\n", "text/rtf:{\\rtf1 r}", "text/uri-list:file:///tmp/a%20b\r\nfile:///c",
                 "application/x-own:raw"});
    owner.WaitTaken();
    QCOMPARE(f.Names(), (QStringList{"Text (Unicode)", "Text", "Rich Text Format", "File List", "application/x-own"}));
    QCOMPARE(f.clipboard.FormatCount(), 5);
    QCOMPARE(f.Block(13), QByteArray("c\0a\0f\0\xE9\0\r\0\n\0\0\0", 14));
    QCOMPARE(f.Block(1), QByteArray("caf\xE9\r\n\0", 7));
    QCOMPARE(f.Block(f.clipboard.AddFormat("Rich Text Format")), "{\\rtf1 r}");
    QCOMPARE(f.Block(f.clipboard.FormatIDForName(kWindow, "application/x-own")), "raw");
    QCOMPARE(f.Block(8), QByteArray());
    StringArray files;
    std::int32_t count = 0;
    f.clipboard.ClipboardOpen(kWindow);
    QVERIFY(f.clipboard.GetFileList(files, count));
    QCOMPARE(files.Entries(), (std::vector<QString>{"/tmp/a b", "/c"}));
    QVERIFY(f.access.HasFormat(kFormatRichText) && !f.access.HasFormat(kFormatBitmap));
    QCOMPARE(f.access.Text().Value(), QStringLiteral(u"caf\u00e9\n"));
    QCOMPARE(f.access.RichText().Value().bytes, "{\\rtf1 r}");
  }

  void FollowsTheClipboard() {
    Fixture f;
    Owner first({"UTF8_STRING:first"});
    first.WaitTaken();
    QCOMPARE(f.access.Text().Value(), "first");
    Owner second({"image/png:no picture", "text/html:<img>"});
    second.WaitTaken();
    QTRY_VERIFY(f.access.HasFormat(kFormatBitmap));
    QVERIFY(!f.access.HasFormat(kFormatText) && !f.access.HasFormat(kFormatRichText));
    QCOMPARE(f.access.Picture().Value().bytes, "no picture");
    QCOMPARE(f.access.Picture().Value().kind, "png");
    QVERIFY(f.Block(8).isEmpty());
    QVERIFY2(f.functions.LastFailure().startsWith("image/png: "), qPrintable(f.functions.LastFailure()));
  }

  void SecretsAreNotThere() {
    Fixture f;
    Owner owner({"UTF8_STRING:password", "x-kde-passwordManagerHint:secret"});
    owner.WaitTaken();
    QCOMPARE(f.clipboard.GetCurrentFormats(kWindow), 0);
    QVERIFY(!f.access.Text());
    // Nor when they replace what was listed.
    Owner open({"UTF8_STRING:open"});
    open.WaitTaken();
    QTRY_VERIFY(!f.contents.Targets().empty());
    Owner secret({"UTF8_STRING:password", "x-kde-passwordManagerHint:secret"});
    secret.WaitTaken();
    QVERIFY(!f.contents.Read("UTF8_STRING"));
  }

  void StrangeTargetsAreListedWithinBounds() {
    Fixture f;
    Owner owner({"UTF8_STRING:text", "--strange", "3000"});
    owner.WaitTaken();
    const QStringList names = f.Names();
    QVERIFY2(names.size() > 500 && names.size() <= 1025, qPrintable(QString::number(names.size())));
    QVERIFY(names.contains("line\nbreak 0") && names.contains("%s%n%d 1"));
    QCOMPARE(f.access.Text().Value(), "text");
  }

  void BadOwnersFailInTime_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("failure");
    QTest::newRow("hangs") << QStringList{"--mode", "hang"} << "holds no text";
    QTest::newRow("refuses") << QStringList{"--mode", "refuse"} << "UTF8_STRING: the owner refused it";
    QTest::newRow("announces 2 GB") << QStringList{"--mode", "announce-huge"}
                                    << "UTF8_STRING: the owner does not answer";
    QTest::newRow("trickles") << QStringList{"--size", "9000", "--mode", "trickle", "--delay", "20"}
                              << "UTF8_STRING: the owner does not answer";
    QTest::newRow("beyond the cap") << QStringList{"--size", "3000000"} << "UTF8_STRING: it is larger than";
    QTest::newRow("dies midway") << QStringList{"--size", "900000", "--mode", "die"} << "UTF8_STRING:";
  }
  void BadOwnersFailInTime() {
    QFETCH(QStringList, arguments);
    QFETCH(QString, failure);
    Fixture f;
    Owner owner(QStringList{"UTF8_STRING:%d"} + arguments);
    owner.WaitTaken();
    QElapsedTimer elapsed;
    elapsed.start();
    const Result<QString> text = f.access.Text();
    QVERIFY(!text);
    QVERIFY2(text.Error().text.contains(failure), qPrintable(text.Error().text));
    for (int i = 0; i < 20; ++i) f.access.Text();
    // An owner that does not answer is waited for once, not twenty times.
    QVERIFY2(elapsed.elapsed() < 4 * kShortWait.stallMs, qPrintable(QString::number(elapsed.elapsed())));
    Owner next({"UTF8_STRING:next"});
    next.WaitTaken();
    QTRY_VERIFY(f.access.Text() && f.access.Text().Value() == "next");
  }

  void LargeDataComesWhole() {
    Fixture f;
    Owner owner({"UTF8_STRING:%d", "--size", "900000"});
    owner.WaitTaken();
    QCOMPARE(f.access.Text().Value().size(), 900000);
  }

  void OnlyOneWindowHoldsItOpen() {
    Fixture f;
    cCustomClipboard other(f.functions, f.access);
    QVERIFY(f.clipboard.ClipboardOpen(kWindow));
    QVERIFY(!other.ClipboardOpen(kWindow + 1));
    QCOMPARE(other.GetCurrentFormats(kWindow + 1), 0);
    f.clipboard.ClipboardClose();
    QVERIFY(other.ClipboardOpen(kWindow + 1));
  }

  void OwnFormatsAreThereWhenItIsClosed() {
    Fixture f;
    f.clipboard.ClipboardOpen(kWindow);
    f.clipboard.ClearClipboard();
    QVERIFY(f.clipboard.SetTextData(1, QStringLiteral(u"caf\u00e9")));
    QVERIFY(f.clipboard.SetTextData(f.clipboard.AddFormat("application/x-own"), "raw"));
    QVERIFY(f.clipboard.SetFileList(StringArray(1, {"/tmp/a b"})));
    QVERIFY(!f.clipboard.SetTextData(3, "no counterpart here"));
    f.clipboard.ClipboardClose();
    QVERIFY(!f.functions.SetClipboardData(1, f.functions.AllocateBlock(0, 4)));
    QCOMPARE(Pasted("UTF8_STRING"), "caf\xC3\xA9");
    QCOMPARE(Pasted("application/x-own"), QByteArray("raw\0", 4));
    QCOMPARE(Pasted("text/uri-list"), "file:///tmp/a%20b\r\n");
    QCOMPARE(f.Block(13), QByteArray("c\0a\0f\0\xE9\0\0\0", 10));
  }

  void AddingKeepsWhatIsThere() {
    Fixture f;
    Owner owner({"UTF8_STRING:text", "application/x-own:raw", "text/rtf:{\\rtf1 old}"});
    owner.WaitTaken();
    QVERIFY(f.access.AddRtf("{\\rtf1 new}"));
    QCOMPARE(Pasted("text/rtf"), "{\\rtf1 new}");
    QCOMPARE(Pasted("application/x-own"), "raw");
    QCOMPARE(Pasted("UTF8_STRING"), "text");
    f.clipboard.ClipboardOpen(kWindow);
    QVERIFY(f.clipboard.SetTextData(f.clipboard.AddFormat("application/x-second"), "second"));
    f.clipboard.ClipboardClose();
    QCOMPARE(Pasted("application/x-second"), QByteArray("second\0", 7));
    QCOMPARE(Pasted("text/rtf"), "{\\rtf1 new}");
  }

  void RichTextIsOfferedUnderEveryName() {
    Fixture f;
    Owner owner({"application/x-own:raw"});
    owner.WaitTaken();
    QVERIFY(f.access.PutRichText({"{\\rtf1 r}", "<b>h</b>", "t"}));
    for (const char* name : {"text/rtf", "application/rtf", "text/richtext"}) QCOMPARE(Pasted(name), "{\\rtf1 r}");
    for (const char* name : {"text/plain", "text/plain;charset=utf-8", "UTF8_STRING"}) QCOMPARE(Pasted(name), "t");
    QCOMPARE(Pasted("text/html"), "<b>h</b>");
    QCOMPARE(Pasted("application/x-own"), QByteArray());
  }

  void EmptyingTakesItFromAnyOwner() {
    Fixture f;
    Owner owner({"UTF8_STRING:theirs"});
    owner.WaitTaken();
    QVERIFY(f.access.EmptyClipboard());
    QTRY_VERIFY(!f.access.HasFormat(kFormatText));
    QCOMPARE(f.contents.Owner(), xcb_window_t{0});
    QVERIFY(f.access.PutRichText({{}, {}, "ours"}));
    f.clipboard.ClipboardOpen(kWindow);
    f.clipboard.ClearClipboard();
    f.clipboard.ClipboardClose();
    QCOMPARE(f.contents.Owner(), xcb_window_t{0});
  }

  void TheHolderKeepsWhatWasOurs_data() {
    QTest::addColumn<bool>("managerHangs");
    QTest::newRow("without a manager") << false;
    QTest::newRow("with one that hangs") << true;
  }
  void TheHolderKeepsWhatWasOurs() {
    QFETCH(bool, managerHangs);
    std::unique_ptr<Manager> manager;
    if (managerHangs) manager = std::make_unique<Manager>(false);
    Fixture f;
    const QByteArray rtf = "{\\rtf1 " + QByteArray(700'000, 'r') + "}";
    f.access.PutRichText({rtf, "<b>h</b>", "t"});
    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY(f.access.HandOverAtExit());
    QVERIFY2(elapsed.elapsed() <= 1000, qPrintable(QString::number(elapsed.elapsed())));
    QVERIFY(!OwnsClipboard());
    QVERIFY(f.contents.Owner() != XCB_WINDOW_NONE);
    QCOMPARE(Pasted("text/rtf"), rtf);
    QCOMPARE(Pasted("UTF8_STRING"), "t");
    QCOMPARE(Pasted("text/html"), "<b>h</b>");
    // It lets go when somebody copies.
    Owner next({"UTF8_STRING:next"});
    next.WaitTaken();
    QTRY_COMPARE(Pasted("UTF8_STRING"), "next");
  }

  void AManagerServesWhereTheHolderIsMissing_data() {
    QTest::addColumn<bool>("answers");
    QTest::newRow("one that saves") << true;
    QTest::newRow("one that hangs") << false;
  }
  void AManagerServesWhereTheHolderIsMissing() {
    QFETCH(bool, answers);
    Manager manager(answers);
    Fixture f;
    X11ClipboardAccess access(f.contents, "/nowhere/holder");
    access.PutRichText({{}, {}, "t"});
    QCOMPARE(static_cast<bool>(access.HandOverAtExit()), answers);
    QCOMPARE(manager.asked, answers ? 1 : 0);
    // What nobody keeps is let go, since Qt would wait for the manager at the end.
    QCOMPARE(OwnsClipboard(), answers);
  }

  void WhatIsNotOursIsNotHandedOver() {
    Fixture f;
    Owner owner({"UTF8_STRING:theirs"});
    owner.WaitTaken();
    const xcb_window_t before = f.contents.Owner();
    QVERIFY(f.access.HandOverAtExit());
    QCOMPARE(f.contents.Owner(), before);
  }

  void AMissingHolderIsReported() {
    Fixture f;
    X11ClipboardAccess access(f.contents, "/nowhere/holder");
    access.PutRichText({{}, {}, "t"});
    QVERIFY(!access.HandOverAtExit());
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::X11ClipboardTest)
#include "x11_clipboard_test.moc"
