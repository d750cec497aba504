#include "platform/qt/qt_message_box.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace snipdeck {

class QtMessageBoxTest : public QObject {
  Q_OBJECT

  QWidget m_window;

  // Shows a message and does `act` to its box once that is open.
  MessageAnswer Answer(const Message& message, const std::function<void(QMessageBox&)>& act) {
    QTimer::singleShot(0, this, [&] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box) act(*box);
    });
    return QtMessageBox(&m_window).Show(message);
  }

 private slots:
  void initTestCase() {
    m_window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_window));
  }

  void TextsAreShownAsTheyAre() {
    QString caption;
    QStringList shown;
    Answer({.text = "<b>&amp;</b>\r\nnot bold"}, [&](QMessageBox& box) {
      caption = box.windowTitle();
      for (const QLabel* label : box.findChildren<QLabel*>())
        if (label->textFormat() == Qt::PlainText) shown << label->text();
      box.button(QMessageBox::Ok)->click();
    });
    QCOMPARE(caption, QString("QM_Snipdeck"));
    QVERIFY(shown.contains("<b>&amp;</b>\nnot bold"));
  }

  void EnterAndEscapeAnswer_data() {
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("defaultButton");
    QTest::addColumn<int>("onEnter");
    QTest::addColumn<int>("onEscape");
    const auto row = [](const char* name, MessageButtons buttons, MessageAnswer preset, MessageAnswer onEnter,
                        MessageAnswer onEscape) {
      QTest::newRow(name) << int(buttons) << int(preset) << int(onEnter) << int(onEscape);
    };
    using enum MessageAnswer;
    row("ok", MessageButtons::Ok, Ok, Ok, Ok);
    row("yes or no", MessageButtons::YesNo, Ok, Yes, No);
    row("no preset", MessageButtons::YesNo, No, No, No);
    row("with cancel", MessageButtons::YesNoCancel, Ok, Yes, Cancel);
    row("cancel preset", MessageButtons::YesNoCancel, Cancel, Cancel, Cancel);
  }

  void EnterAndEscapeAnswer() {
    QFETCH(const int, buttons);
    QFETCH(const int, defaultButton);
    Message message{.text = "Well?", .buttons = MessageButtons(buttons)};
    message.defaultButton = MessageAnswer(defaultButton);
    QTEST(int(Answer(message, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); })), "onEnter");
    QTEST(int(Answer(message, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); })), "onEscape");
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::QtMessageBoxTest)
#include "qt_message_box_test.moc"
