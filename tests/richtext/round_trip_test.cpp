#include <QDirIterator>
#include <QTest>
#include <QTextDocument>

#include "richtext/document_compare.h"
#include "richtext/document_flow.h"
#include "richtext/html/html_writer.h"
#include "richtext/random_document.h"
#include "richtext/rich_text.h"
#include "richtext/rtf/rtf_reader.h"
#include "richtext/rtf/rtf_writer.h"
#include "richtext/safe_document.h"
#include "richtext/text/text_writer.h"

using namespace snipdeck;

/// What was read, written and read again is the same text in the same formats.
class RoundTripTest : public QObject {
  Q_OBJECT

 private slots:
  void RandomDocuments();
  void Files_data();
  void Files();
  void HtmlKeepsTheText_data();
  void HtmlKeepsTheText();
};

namespace {

QByteArray ContentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

RichText Read(const QString& path) {
  const bool isHtml = path.endsWith(QLatin1String("html"), Qt::CaseInsensitive) ||
                      path.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive);
  const QByteArray bytes = ContentOf(path);
  return isHtml ? RichText::FromHtml(bytes) : RichText::FromRtf(bytes, ReadFor::Document);
}

}  // namespace

void RoundTripTest::RandomDocuments() {
  const QByteArray given = qgetenv("SNIPDECK_SEED");
  const quint32 first = given.isEmpty() ? 1 : given.toUInt();
  const int count = given.isEmpty() ? 300 : 1;
  for (int i = 0; i < count; ++i) {
    SafeDocument written, read;
    test::FillWithRandomText(written, first + i, 20);
    ReadRtf(WriteRtf(written), read, ReadFor::Document);
    const QString difference = test::FirstDifference(written, read);
    QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("SNIPDECK_SEED=%1 %2").arg(first + i).arg(difference)));
  }
}

void RoundTripTest::Files_data() {
  QTest::addColumn<QString>("path");
  const QString elsewhere = qEnvironmentVariable("SNIPDECK_ROUND_TRIP");
  for (const QString& root : {QStringLiteral(SNIPDECK_TEST_DATA), elsewhere}) {
    if (root.isEmpty()) continue;
    QDirIterator files(root, {"*.rtf", "*.html", "*.htm", "*.cfhtml"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      const QString path = files.next();
      QTest::newRow(qPrintable(path.mid(root.size() + 1))) << path;
    }
  }
}

void RoundTripTest::Files() {
  QFETCH(QString, path);
  const RichText first = Read(path);
  const RichText second = RichText::FromRtf(first.Rtf(), ReadFor::Document);
  const QString difference = test::FirstDifference(first.Document(), second.Document());
  QVERIFY2(difference.isEmpty(), qPrintable(difference));
  if (!IsPlainFlow(first.Document())) return;
  DocumentFlow flow(first.Document());
  QVERIFY(!flow.ReadPart());
  const RichText third = RichText::FromFlow(flow.Take(), {});
  const QString inFlow = test::FirstDifference(first.Document(), third.Document());
  QVERIFY2(inFlow.isEmpty(), qPrintable(inFlow));
}

void RoundTripTest::HtmlKeepsTheText_data() {
  QTest::addColumn<QString>("path");
  // Hostile files are for the readers: what they leave of tables, HTML cannot tell.
  QDirIterator files(QStringLiteral(SNIPDECK_TEST_DATA), {"*.rtf"}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    const bool isHostile = path.contains(QLatin1String("/pass/")) || path.contains(QLatin1String("/fail/"));
    if (!isHostile) QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
  }
}

void RoundTripTest::HtmlKeepsTheText() {
  QFETCH(QString, path);
  const RichText first = Read(path);
  const RichText second = RichText::FromHtml(WriteHtml(first.Document()));
  QCOMPARE(second.PlainText(), first.PlainText());
}

QTEST_MAIN(RoundTripTest)
#include "round_trip_test.moc"
