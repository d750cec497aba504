#include "platform/qt/qt_message_box.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace snipdeck {

class QtMessageBoxTest : public QObject {
  Q_OBJECT

 private slots:
  void TextsAreShownAsTheyAre() {
    QWidget window;
    window.show();
    QString text;
    QString caption;
    QTimer::singleShot(0, &window, [&] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return;
      caption = box->windowTitle();
      for (QLabel* label : box->findChildren<QLabel*>())
        if (label->text() == box->text() && label->textFormat() == Qt::PlainText) text = label->text();
      box->button(QMessageBox::Ok)->click();
    });
    QtMessageBox(&window).ShowInformation("<b>&amp;</b>\r\nnot bold");
    QCOMPARE(caption, QString("QM_Snipdeck"));
    QCOMPARE(text, QString("<b>&amp;</b>\r\nnot bold"));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::QtMessageBoxTest)
#include "qt_message_box_test.moc"
