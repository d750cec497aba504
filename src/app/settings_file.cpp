#include "app/settings_file.h"

#include <QFileInfo>
#include <QStringDecoder>

#include "app/settings_number.h"
#include "app/settings_table.h"
#include "platform/whole_file.h"
#include "richtext/text/code_pages.h"

namespace snipdeck {

namespace {

/// A file that came from a system with an ANSI code page is hardly ever UTF-8 as well.
QString TextOfBytes(const QByteArray& bytes) {
#ifdef Q_OS_WIN
  return QString::fromLocal8Bit(bytes);
#else
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(bytes);
  return decoder.hasError() ? DecodeCodePage(kCodePageLatin, bytes) : text;
#endif
}

QByteArray BytesOfText(const QString& text) {
#ifdef Q_OS_WIN
  return text.toLocal8Bit();
#else
  return text.toUtf8();
#endif
}

QStringList LinesOf(QString text) {
  const QChar lineEnd = text.contains(u'\r') ? u'\r' : u'\n';
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\r"));
  QStringList lines = text.split(lineEnd);
  if (lines.last().isEmpty()) lines.removeLast();
  return lines;
}

/// Reads one line into one value; the type of the value decides how.
struct LineReader {
  QStringView line;
  Settings& settings;

  template <typename Number>
  void operator()(Number Settings::*value) const {
    if (const auto number = LeadingNumber<Number>(line)) settings.*value = *number;
  }
  void operator()(QString Settings::*value) const { settings.*value = line.toString(); }
};

struct LineWriter {
  const Settings& settings;

  template <typename Number>
  QString operator()(Number Settings::*value) const {
    return QString::number(settings.*value);
  }
  // A carriage return would end the line too early and shift all lines after it.
  QString operator()(QString Settings::*value) const { return QString(settings.*value).replace(u'\r', u' '); }
};

}  // namespace

void ParseSettings(const QByteArray& bytes, Settings& settings) {
  const QStringList lines = LinesOf(TextOfBytes(bytes));
  for (const SettingLine& setting : kSettingLines) {
    if (setting.line > lines.size()) return;
    std::visit(LineReader{lines[setting.line - 1], settings}, setting.value);
  }
}

QByteArray FormatSettings(const Settings& settings) {
  QString text;
  for (const SettingLine& setting : kSettingLines) {
    text += std::visit(LineWriter{settings}, setting.value) + QStringLiteral("\r\n");
  }
  return BytesOfText(text);
}

SettingsFile::SettingsFile(const QString& path, Settings& settings, MessageBox& messages)
    : m_path(path), m_settings(settings), m_reports(messages) {}

void SettingsFile::ReadSettings() {
  if (m_path.isEmpty()) return;
  if (const auto bytes = ReadWholeFile(m_path)) ParseSettings(bytes.Value(), m_settings);
}

void SettingsFile::WriteSettings() {
  const Outcome written = TryToWrite();
  if (!written) m_reports.ShowFileError(m_path, written.Error().text);
}

Outcome SettingsFile::TryToWrite() const {
  return WriteWholeFile(m_path, FormatSettings(m_settings));
}

void CopyFirstSettings(const QString& path, const QString& installed) {
  if (QFileInfo::exists(path)) return;
  if (const auto bytes = ReadWholeFile(installed)) WriteWholeFile(path, bytes.Value());
}

}  // namespace snipdeck
