// Converts a text from one format to another, as the program itself would load and save it.

#include <cstdio>
#include <optional>

#include <QCommandLineParser>
#include <QFile>
#include <QGuiApplication>

#include "platform/whole_file.h"
#include "richtext/document_file.h"
#include "richtext/rich_text.h"
#include "richtext/text/text_writer.h"
#include "storage/file_types.h"

using namespace snipdeck;

namespace {

enum ExitCode { kConverted = 0, kUsage = 1, kCannotRead = 2, kCannotWrite = 3 };

struct Task {
  QString input;
  QString output;
  FileFormat from = FileFormat::PlainText;
  FileFormat to = FileFormat::PlainText;
  bool labels = false;
};

void Say(const QString& message) {
  std::fprintf(stderr, "richtext_convert: %s\n", qPrintable(message));
}

Result<QByteArray> Written(const RichText& text, const Task& task) {
  if (task.to == FileFormat::PlainText && task.labels) return WriteText(text.Document(), 0, -1, true).toUtf8();
  return WriteDocumentBytes(text.Document(), task.to);
}

QString Save(const QString& name, const QByteArray& bytes) {
  if (name == QLatin1String("-")) {
    QFile output;
    const bool written = output.open(stdout, QIODevice::WriteOnly) && output.write(bytes) == bytes.size();
    return written && output.flush() ? QString() : output.errorString();
  }
  const Outcome written = WriteFileOrDevice(name, bytes);
  return written ? QString() : written.Error().text;
}

ExitCode Convert(const Task& task) {
  QFile input(task.input);
  if (!(task.input == QLatin1String("-") ? input.open(stdin, QIODevice::ReadOnly) : input.open(QIODevice::ReadOnly))) {
    Say(QStringLiteral("cannot read \"%1\": %2").arg(task.input, input.errorString()));
    return kCannotRead;
  }
  const Result<RichText> text = ReadDocumentBytes(input.readAll(), task.from);
  if (!text) {
    Say(QStringLiteral("cannot read \"%1\" as format %2: %3")
            .arg(task.input, QString::number(static_cast<int>(task.from)), text.Error().text));
    return kCannotRead;
  }
  for (const QString& warning : text.Value().Warnings()) Say(QStringLiteral("%1: %2").arg(task.input, warning));
  const Result<QByteArray> bytes = Written(text.Value(), task);
  if (!bytes) {
    Say(QStringLiteral("cannot write \"%1\" as format %2: %3")
            .arg(task.output, QString::number(static_cast<int>(task.to)), bytes.Error().text));
    return kCannotWrite;
  }
  const QString failure = Save(task.output, bytes.Value());
  if (failure.isEmpty()) return kConverted;
  Say(QStringLiteral("cannot write \"%1\": %2").arg(task.output, failure));
  return kCannotWrite;
}

std::optional<FileFormat> FormatOption(const QString& value, FileFormat byName) {
  if (value.isEmpty()) return byName;
  bool isNumber = false;
  const short code = value.toShort(&isNumber);
  return isNumber ? std::optional(static_cast<FileFormat>(code)) : std::nullopt;
}

std::optional<Task> TaskFromArguments(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Converts a text between formats, by the ends of the files' names."));
  parser.addHelpOption();
  parser.addPositionalArgument(QStringLiteral("IN"), QStringLiteral("File to read; - for standard input."));
  parser.addPositionalArgument(QStringLiteral("OUT"), QStringLiteral("File to write; - for standard output."));
  const QString codes = QStringLiteral("1 text, 4 HTML, 5 RTF, 9 DOC, 10 XML, 11 CSS, 12 PDF, 13 DOCX, 15 XLSX");
  const QCommandLineOption from(QStringLiteral("from"), QStringLiteral("Read as this format: %1.").arg(codes), "code");
  const QCommandLineOption to(QStringLiteral("to"), QStringLiteral("Write this format: %1.").arg(codes), "code");
  const QCommandLineOption labels(QStringLiteral("labels"), QStringLiteral("Show list numbers and bullets in text."));
  parser.addOptions({from, to, labels});
  parser.process(arguments);
  const QStringList names = parser.positionalArguments();
  if (names.size() != 2) {
    Say(QStringLiteral("two names are needed, IN and OUT (--help tells more)"));
    return std::nullopt;
  }
  const auto fromFormat = FormatOption(parser.value(from), LoadFormatForName(names[0], true));
  const auto toFormat = FormatOption(parser.value(to), SaveFormatForName(names[1]));
  if (!fromFormat || !toFormat) {
    Say(QStringLiteral("a format is given by its number (--help tells more)"));
    return std::nullopt;
  }
  return Task{names[0], names[1], *fromFormat, *toFormat, parser.isSet(labels)};
}

}  // namespace

int main(int argc, char** argv) {
  // Nothing is shown, so no display is needed.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const std::optional<Task> task = TaskFromArguments(application.arguments());
  return task ? Convert(*task) : kUsage;
}
