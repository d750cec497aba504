#include <QComboBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTextList>
#include <QTextTable>
#include <QTimer>

#include <functional>

#include "platform/qt/dialogs/bullets_dialog.h"
#include "platform/qt/dialogs/insert_table_dialog.h"
#include "platform/qt/dialogs/page_setup_dialog.h"
#include "platform/qt/dialogs/table_attributes_dialog.h"
#include "platform/qt/dialogs/length_box.h"
#include "platform/qt/rich_text_control.h"
#include "platform/qt/table_work.h"
#include "richtext/list_labels.h"

namespace snipdeck {

class TableDialogsTest : public QObject {
  Q_OBJECT

  RichTextControl m_control;

  // Works in the dialog that `open` shows, and leaves it with OK or, where `work` says false, with Escape.
  template <typename Dialog>
  void InDialog(const std::function<void()>& open, const std::function<bool(Dialog&)>& work) {
    bool came = false;
    QTimer::singleShot(0, this, [&] {
      auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog);
      came = true;
      const QString pictures = qEnvironmentVariable("SNIPDECK_PICTURES");
      const bool ok = work(*dialog);
      if (!pictures.isEmpty()) dialog->grab().save(pictures + '/' + dialog->objectName() + ".png");
      for (const QWidget* field : dialog->template findChildren<QSpinBox*>()) QVERIFY(field->width() > 30);
      if (!ok) return QTest::keyClick(dialog, Qt::Key_Escape);
      dialog->template findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    open();
    QVERIFY(came);
  }

  QTextTable* Table() const { return m_control.textCursor().currentTable(); }
  template <typename Field>
  static Field& NthField(QWidget& dialog, int n) {
    return *dialog.findChildren<Field*>().at(n);
  }

  void InsertTwoByThree() {
    m_control.SetText("before");
    m_control.SetSelStart(6);
    InDialog<TextInsertTableDialog>([this] { m_control.InsertTableDialog(); }, [](TextInsertTableDialog& dialog) {
      dialog.findChild<QSpinBox*>("rows")->setValue(2);
      dialog.findChild<QSpinBox*>("columns")->setValue(3);
      return true;
    });
  }

  void Change(TableChange change, int count = 1) {
    InDialog<TextTableDialog>([this] { m_control.TableAttributesDialog(); }, [&](TextTableDialog& dialog) {
      for (QComboBox* box : dialog.findChildren<QComboBox*>())
        if (box->findText("Remove the table") >= 0) box->setCurrentIndex(static_cast<int>(change));
      dialog.findChild<QSpinBox*>()->setValue(count);
      return true;
    });
  }

 private slots:
  void ATableIsInsertedAndTravelsThroughRtf() {
    QCOMPARE(m_control.TableAtCaret(), 0);
    InsertTwoByThree();
    QVERIFY(m_control.TableAtCaret() > 0);
    QCOMPARE(Table()->rows(), 2);
    QCOMPARE(Table()->columns(), 3);
    m_control.SetSelText("first");
    m_control.selectAll();
    QCOMPARE(m_control.TableAtCaret(), 0);
    RichTextControl copy;
    copy.SetSelRtf(m_control.SelRtf());
    QCOMPARE(copy.Text(), m_control.Text());
    QVERIFY(LinesOf(copy.document()->rootFrame()->childFrames().value(0)->firstCursorPosition().currentTable()
                        ->cellAt(1, 2).format().toTableCellFormat()).width > 0);
    m_control.undo();
    m_control.undo();
    QCOMPARE(m_control.Text(), QString("before"));
  }

  void RowsAndColumnsComeAndGo_data() {
    QTest::addColumn<int>("change");
    QTest::addColumn<QSize>("size");
    QTest::newRow("rows above") << int(TableChange::RowsAbove) << QSize(3, 4);
    QTest::newRow("rows below") << int(TableChange::RowsBelow) << QSize(3, 4);
    QTest::newRow("columns before") << int(TableChange::ColumnsBefore) << QSize(5, 2);
    QTest::newRow("columns after") << int(TableChange::ColumnsAfter) << QSize(5, 2);
    QTest::newRow("row removed") << int(TableChange::RemoveRow) << QSize(3, 1);
    QTest::newRow("column removed") << int(TableChange::RemoveColumn) << QSize(2, 2);
    QTest::newRow("table removed") << int(TableChange::RemoveTable) << QSize();
  }

  void RowsAndColumnsComeAndGo() {
    QFETCH(int, change);
    QFETCH(QSize, size);
    InsertTwoByThree();
    const QString before = m_control.Text();
    Change(static_cast<TableChange>(change), 2);
    const auto frames = m_control.document()->rootFrame()->childFrames();
    QCOMPARE(frames.isEmpty(), !size.isValid());
    if (size.isValid()) {
      const auto* const table = qobject_cast<QTextTable*>(frames.first());
      QCOMPARE(QSize(table->columns(), table->rows()), size);
      for (int i = 0; i < size.width() * size.height(); ++i)
        QCOMPARE(LinesOf(table->cellAt(i / size.width(), i % size.width()).format().toTableCellFormat()), CellLines());
    }
    m_control.undo();
    QCOMPARE(m_control.Text(), before);
  }

  void ACancelledDialogChangesNothing() {
    InsertTwoByThree();
    const QByteArray before = m_control.document()->toHtml().toUtf8();
    InDialog<TextTableDialog>([this] { m_control.TableAttributesDialog(); }, [](TextTableDialog& dialog) {
      NthField<LengthBox>(dialog, 0).setValue(1);
      return false;
    });
    InDialog<TextTableDialog>([this] { m_control.TableAttributesDialog(); }, [](TextTableDialog&) { return true; });
    QCOMPARE(m_control.document()->toHtml().toUtf8(), before);
  }

  void ParagraphsBecomeAListAndLeaveIt() {
    m_control.SetText("one\ntwo\nthree");
    m_control.selectAll();
    const auto choose = [this](int row, int start = 1) {
      InDialog<TextBulletsDialog>([this] { m_control.BulletsDialog(); }, [row, start](TextBulletsDialog& dialog) {
        dialog.findChild<QListWidget*>()->setCurrentRow(row);
        dialog.findChild<QSpinBox*>("start")->setValue(start);
        return true;
      });
    };
    choose(4);
    QCOMPARE(m_control.textCursor().currentList()->count(), 3);
    QCOMPARE(m_control.textCursor().currentList()->itemText(m_control.document()->lastBlock()), QString("3."));
    QVERIFY(m_control.SelRtf().contains("\\ls"));
    choose(8, 3);
    QCOMPARE(ListLabel(m_control.document()->lastBlock()), QString("V."));
    RichTextControl copy;
    copy.SetSelRtf(m_control.SelRtf());
    QCOMPARE(ListLabel(copy.document()->lastBlock()), QString("V."));
    InDialog<TextBulletsDialog>([this] { m_control.BulletsDialog(); }, [](TextBulletsDialog& dialog) {
      return dialog.findChild<QSpinBox*>("start")->value() != 3;
    });
    choose(0);
    QVERIFY(!m_control.textCursor().currentList());
    m_control.undo();
    QCOMPARE(m_control.textCursor().currentList()->count(), 3);
  }

  // A table that takes the place of an empty paragraph leaves none behind; one that was there before shows.
  void AnEmptyParagraphBeforeATableIsSeenOrNotThere() {
    const auto insert = [this] {
      InDialog<TextInsertTableDialog>([this] { m_control.InsertTableDialog(); }, [](TextInsertTableDialog&) { return true; });
    };
    const auto heightOf = [this](int block) {
      const QTextBlock at = m_control.document()->findBlockByNumber(block);
      QTextCursor below(at.next());
      const auto& layout = *m_control.document()->documentLayout();
      return layout.frameBoundingRect(below.currentTable()).top() - layout.blockBoundingRect(at).top();
    };
    m_control.show();
    m_control.SetText("above\n");
    m_control.SetSelStart(6);
    insert();
    QCOMPARE(m_control.textCursor().currentTable()->firstPosition(), 6);
    m_control.SetText("");
    m_control.SetSelRtf("{\\rtf1 above\\par\\par\\trowd\\cellx2000\\intbl in\\cell\\row\\pard below}");
    QVERIFY(heightOf(1) > 5);
    QCOMPARE(m_control.Text(), QString("above\n\nin\nbelow"));
    m_control.SetText("above");
    m_control.SetSelStart(5);
    insert();
    m_control.SetSelStart(5);
    QTest::keyClick(&m_control, Qt::Key_Return);
    ShowNewBlankLine(m_control.textCursor());
    QVERIFY(heightOf(1) > 5);
    m_control.undo();
    QCOMPARE(m_control.textCursor().block().next().position(), 6);
  }

  void APaperTurnsAndTakesItsMargins() {
    m_control.SetText("page");
    InDialog<TextPageSetupDialog>([this] { m_control.PageSetupDialog(0); }, [](TextPageSetupDialog& dialog) {
      QTest::mouseClick(&NthField<QAbstractButton>(dialog, 1), Qt::LeftButton);
      return true;
    });
    QCOMPARE(m_control.Page(), (PageGeometry{16838, 11906}));
    m_control.undo();
    QCOMPARE(m_control.Page(), PageGeometry());
  }

  void ATextFrameKeepsItsBorderAndDistances() {
    m_control.SetText("around");
    m_control.SetSelStart(3);
    const int frame = m_control.TextFrameInsert(1, 1, -1);
    const std::pair<int, int> values[] = {{2, 3}, {9, 180}, {11, 200}, {10, 180}, {12, 180}};
    for (const auto& [index, value] : values) m_control.SetTextFrameAttribute(frame, 1, 1, index, value);
    m_control.SetSelText("inside");
    m_control.selectAll();
    RichTextControl copy;
    copy.SetSelRtf(m_control.SelRtf());
    QCOMPARE(copy.Text(), QString("aro\ninside\nund"));
    const int there = copy.document()->rootFrame()->childFrames().first()->objectIndex() + 1;
    for (const auto& [index, value] : values) QCOMPARE(copy.TextFrameAttribute(there, 1, 1, index), value);
    QCOMPARE(copy.TextFrameAttribute(there + 50, 1, 1, 2), 0);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::TableDialogsTest)
#include "table_dialogs_test.moc"
