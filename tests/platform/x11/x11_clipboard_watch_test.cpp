#include "platform/x11/x11_clipboard_watch.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <QThread>
#include <QTimer>

#include "platform/x11/answer.h"
#include "platform/x11/owner.h"

namespace snipdeck {

namespace {

constexpr TransferLimits kShortLimits{.stallMs = 300, .supersededMs = 600, .maxBytes = 1 << 20};

/// Copies in this process. When its first copy is asked for its text it makes two more at once, of which the second is
/// a password, and answers with that one.
class HastyOwner : public QObject {
 public:
  HastyOwner() {
    connect(&m_connection, &XConnection::EventArrived, this, &HastyOwner::HandleEvent);
    Take();
  }

 private:
  void Take() {
    xcb_set_selection_owner(m_connection.Raw(), m_connection.Window(), m_connection.Atom("CLIPBOARD"),
                            XCB_CURRENT_TIME);
    m_connection.Flush();
    ++m_copies;
  }
  void HandleEvent(const xcb_generic_event_t* event) {
    if ((event->response_type & 0x7F) != XCB_SELECTION_REQUEST) return;
    const auto& request = *reinterpret_cast<const xcb_selection_request_event_t*>(event);
    if (request.target == m_connection.Atom("TARGETS")) {
      const xcb_atom_t targets[] = {m_connection.Atom("UTF8_STRING")};
      return Answer(request, XCB_ATOM_ATOM, 32, 1, targets);
    }
    const bool isFirst = m_copies == 1;
    if (isFirst) Take();
    if (isFirst) Take();
    const QByteArray text = isFirst ? "password" : "third copy";
    Answer(request, request.target, 8, static_cast<uint32_t>(text.size()), text.constData());
  }
  void Answer(const xcb_selection_request_event_t& request, xcb_atom_t type, uint8_t width, uint32_t count,
              const void* data) {
    xcb_change_property(m_connection.Raw(), XCB_PROP_MODE_REPLACE, request.requestor, request.property, type, width,
                        count, data);
    TellAnswered(m_connection, request);
  }

  XConnection m_connection;
  int m_copies = 0;
};

}  // namespace

/// Runs the event loop until the condition holds or 5 s have passed. QTest::qWait sleeps between its rounds, which a
/// program does not do, and that makes copies at intervals of 10 ms come too late.
template <typename Condition>
bool WaitFor(Condition condition) {
  QEventLoop loop;
  QTimer deadline;
  deadline.setSingleShot(true);
  deadline.callOnTimeout(&loop, &QEventLoop::quit);
  deadline.start(5000);
  while (!condition() && deadline.isActive()) loop.processEvents(QEventLoop::WaitForMoreEvents);
  return condition();
}

/// Against a real X server and programs of their own as owners.
class X11ClipboardWatchTest : public QObject {
  Q_OBJECT

  struct Watch {
    X11ClipboardWatch clipboard{kShortLimits};
    QStringList told;
    Watch() {
      QVERIFY(clipboard.IsWorking());
      clipboard.StartWatching([this] { told.append(Describe()); });
    }
    QString Describe() const {
      if (clipboard.HasFormat(kFormatRichText)) return QString::fromUtf8(clipboard.RichText().bytes);
      if (clipboard.HasFormat(kFormatText)) return clipboard.Text();
      if (clipboard.HasFormat(kFormatBitmap)) return "image";
      if (clipboard.HasFormat(kFormatFileList)) return "files: " + clipboard.FileList().join('|');
      return "nothing";
    }
    /// Copies a plain text that must arrive, whatever came before it.
    void ExpectNextCopyToArrive() {
      const Owner next({"UTF8_STRING:next copy"});
      QVERIFY(WaitFor([&] { return !told.isEmpty() && told.last() == "next copy"; }));
    }
  };

 private slots:
  void init() {
    QGuiApplication::clipboard()->clear();
    QTest::qWait(0);
  }

  void TellsTextsInOrder() {
    Watch watch;
    const Owner owner({"UTF8_STRING:copy %d", "--count", "50", "--interval", "10"});
    QVERIFY(WaitFor([&] { return watch.told.size() >= 50; }));
    for (int i = 0; i < 50; ++i) QCOMPARE(watch.told[i], QString("copy %1").arg(i + 1));
  }

  void WhatCameWhileHeldIsToldInOrderAfterwards() {
    Watch watch;
    QTest::qWait(50);
    watch.told.clear();
    watch.clipboard.Hold(true);
    const Owner owner({"UTF8_STRING:copy %d", "--count", "5", "--interval", "100"});
    QTest::qWait(1000);
    QVERIFY(watch.told.isEmpty());
    watch.clipboard.Hold(false);
    QVERIFY(watch.told.isEmpty());
    QVERIFY(WaitFor([&] { return watch.told.size() >= 5; }));
    for (int i = 0; i < 5; ++i) QCOMPARE(watch.told[i], QString("copy %1").arg(i + 1));
  }

  void NoCopyIsLostWhileTheWindowsAreBusy() {
    Watch watch;
    const Owner owner({"UTF8_STRING:copy %d", "--count", "20", "--interval", "25"});
    QThread::msleep(1000);
    QVERIFY(WaitFor([&] { return watch.told.size() >= 20; }));
    for (int i = 0; i < 20; ++i) QCOMPARE(watch.told[i], QString("copy %1").arg(i + 1));
  }

  void TellsEveryProcessOfManyOnce() {
    Watch watch;
    const Owner owner({"UTF8_STRING:copy %d", "--count", "30", "--interval", "25", "--new-process"});
    QVERIFY(WaitFor([&] { return watch.told.size() >= 30; }));
    for (int i = 0; i < 30; ++i) QCOMPARE(watch.told[i], QString("copy %1").arg(i + 1));
  }

  void TellsWhatIsThereAtTheStart() {
    const Owner owner({"UTF8_STRING:before"});
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), QString("before"));
    Watch watch;
    QTRY_COMPARE(watch.told, QStringList{"before"});
  }

  void ChoosesTheBestForm_data() {
    QTest::addColumn<QStringList>("offers");
    QTest::addColumn<QString>("told");
    QTest::newRow("RTF") << QStringList{"UTF8_STRING:t", "text/html:<b>t</b>", "text/rtf:{\\rtf1 t}"} << "{\\rtf1 t}";
    QTest::newRow("second RTF name") << QStringList{"text/richtext:<bold>t", "application/rtf:{\\rtf1 u}"}
                                     << "{\\rtf1 u}";
    QTest::newRow("HTML") << QStringList{"UTF8_STRING:t", "text/html:<b>t</b>"} << "<b>t</b>";
    QTest::newRow("garbage as RTF") << QStringList{"UTF8_STRING:t", "text/rtf:garbage"} << "t";
    QTest::newRow("copied image") << QStringList{"image/png:x", "text/html:<img src='x'>"} << "image";
    QTest::newRow("files") << QStringList{"text/uri-list:file:///a%20b", "x-special/gnome-copied-files:copy"}
                           << "files: /a b";
    QTest::newRow("files with names as text")
        << QStringList{"text/uri-list:file:///a", "x-special/gnome-copied-files:copy", "UTF8_STRING:/a"} << "files: /a";
    QTest::newRow("Latin-1 only") << QStringList{"STRING:caf\u00e9"} << QString::fromLatin1("caf\xC3\xA9");
    QTest::newRow("large") << QStringList{"UTF8_STRING:" + QString(300000, 'x')} << QString(300000, 'x');
  }
  void ChoosesTheBestForm() {
    QFETCH(QStringList, offers);
    QFETCH(QString, told);
    Watch watch;
    if (offers.first().size() > 100000) {  // more than an argument may hold
      QFile file(QDir::temp().filePath("snipdeck_large_text"));
      QVERIFY(file.open(QIODevice::WriteOnly) && file.write(offers.first().mid(12).toUtf8()) > 0);
      offers = {"UTF8_STRING=" + file.fileName()};
    }
    const Owner owner(offers);
    QTRY_COMPARE(watch.told, QStringList{told});
  }

  void SecretsAreNotRead_data() {
    QTest::addColumn<QString>("hint");
    QTest::addColumn<bool>("isSecret");
    QTest::newRow("secret") << "secret" << true;
    QTest::newRow("public") << "public" << false;
  }
  void SecretsAreNotRead() {
    QFETCH(QString, hint);
    QFETCH(bool, isSecret);
    Watch watch;
    Owner owner({"UTF8_STRING:password", "x-kde-passwordManagerHint:" + hint});
    owner.WaitTaken();
    if (!isSecret) QTRY_COMPARE(watch.told, QStringList{"password"});
    watch.ExpectNextCopyToArrive();
    QCOMPARE(watch.told.contains("password"), !isSecret);
  }

  void EveryMarkOfSecrecyCounts_data() {
    QTest::addColumn<QStringList>("offers");
    QTest::newRow("viewer ignore") << QStringList{"Clipboard Viewer Ignore:"};
    QTest::newRow("monitors") << QStringList{"ExcludeClipboardContentFromMonitorProcessing:x"};
    QTest::newRow("mark that cannot be read") << QStringList{"x-kde-passwordManagerHint:x", "--mode", "refuse"};
  }
  void EveryMarkOfSecrecyCounts() {
    QFETCH(QStringList, offers);
    Watch watch;
    Owner owner(QStringList{"UTF8_STRING:password", "image/png:x"} + offers);
    owner.WaitTaken();
    watch.ExpectNextCopyToArrive();
    QCOMPARE(watch.told, QStringList{"next copy"});
  }

  void ASecondProgramsCopyOfACopyIsNotTold() {
    Watch watch;
    const Owner first({"UTF8_STRING:text", "STRING:text", "text/html:<b>text</b>", "text/rtf:{\\rtf1 text}"});
    QTRY_COMPARE(watch.told, QStringList{"{\\rtf1 text}"});
    Owner manager({"UTF8_STRING:text", "STRING:text", "application/x-of-a-manager:1"});
    manager.WaitTaken();
    watch.ExpectNextCopyToArrive();
    QCOMPARE(watch.told, (QStringList{"{\\rtf1 text}", "next copy"}));
  }

  void TheSameTextCopiedTwiceIsToldTwice() {
    Watch watch;
    const Owner first({"UTF8_STRING:text", "STRING:text", "--count", "2", "--interval", "300"});
    QTRY_COMPARE(watch.told, (QStringList{"text", "text"}));
    const Owner second({"UTF8_STRING:text", "STRING:text"});
    QTRY_COMPARE(watch.told, (QStringList{"text", "text", "text"}));
  }

  void WhatChangesWhileItIsReadIsToldOnce() {
    Watch watch;
    const Owner owner({"UTF8_STRING:copy %d", "--count", "6", "--interval", "3000", "--mode", "change"});
    QVERIFY(WaitFor([&] { return watch.told.contains("copy 6"); }));
    const QStringList all{"copy 1", "copy 2", "copy 3", "copy 4", "copy 5", "copy 6"};
    QStringList expected;
    for (const QString& text : all) {
      if (watch.told.contains(text)) expected << text;
    }
    QCOMPARE(watch.told, expected);
  }

  void APasswordBetweenTwoQuickCopiesIsNotTold() {
    Watch watch;
    HastyOwner owner;
    QTRY_VERIFY(watch.told.contains("third copy"));
    QCOMPARE(watch.told, QStringList{"third copy"});
  }

  void StrangeTargetsDoNotHideTheText() {
    Watch watch;
    const Owner owner({"UTF8_STRING:text", "--strange", "3000"});
    QTRY_COMPARE(watch.told, QStringList{"text"});
  }

  void BadOwnersCostOnlyTheirCopy_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("hangs") << QStringList{"UTF8_STRING:x", "--mode", "hang"};
    QTest::newRow("announces 2 GB") << QStringList{"UTF8_STRING:x", "--mode", "announce-huge"};
    QTest::newRow("trickles") << QStringList{"UTF8_STRING:%d", "--size", "1000", "--mode", "trickle", "--delay", "50"};
    QTest::newRow("refuses") << QStringList{"UTF8_STRING:x", "--mode", "refuse"};
    QTest::newRow("registered only") << QStringList{"application/x-unknown:x"};
    QTest::newRow("beyond the cap") << QStringList{"UTF8_STRING:%d", "--size", "3000000"};
    QTest::newRow("dies midway") << QStringList{"UTF8_STRING:%d", "--size", "900000", "--mode", "die"};
  }
  void BadOwnersCostOnlyTheirCopy() {
    QFETCH(QStringList, arguments);
    Watch watch;
    {
      const Owner bad(arguments);
      QTest::qWait(kShortLimits.stallMs / 3);
      watch.ExpectNextCopyToArrive();
    }
    QVERIFY2(watch.told == QStringList{"next copy"}, qPrintable(watch.told.join(" | ")));
  }

  void OurOwnCopiesAreToldWithoutAnyOwnersAnswer() {
    Watch watch;
    auto* data = new QMimeData;
    data->setText("ours");
    data->setData("text/rtf", "{\\rtf1 ours}");
    QGuiApplication::clipboard()->setMimeData(data);
    QTRY_COMPARE(watch.told, QStringList{"{\\rtf1 ours}"});
  }

  void NothingIsToldAfterTheStop() {
    Watch watch;
    watch.ExpectNextCopyToArrive();
    watch.clipboard.StopWatching();
    watch.told.clear();
    Watch other;
    const Owner owner({"UTF8_STRING:late"});
    QTRY_VERIFY(other.told.contains("late"));
    QCOMPARE(watch.told, QStringList());
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::X11ClipboardWatchTest)
#include "x11_clipboard_watch_test.moc"
