#include "storage/text_export.h"

#include <QFileInfo>
#include <QThread>

#include "storage/busy_pointer.h"
#include "storage/file_types.h"

namespace snipdeck {

namespace {

constexpr int kAppendPause = 500;  // milliseconds
constexpr int kSeparatorPairs = 32;
const QString kLineEnd = QStringLiteral("\r\n");

QString Separator() {
  return QStringLiteral("+-").repeated(kSeparatorPairs) + u'+';
}

QList<FileFilter> SavedKinds() {
  return {{QStringLiteral("RTF files (*.rtf)"), QStringLiteral("*.rtf")},
          {QStringLiteral("HTML files (*.html)"), QStringLiteral("*.html;*.htm")},
          {QStringLiteral("Word documents (*.docx)"), QStringLiteral("*.docx")},
          {QStringLiteral("PDF files (*.pdf)"), QStringLiteral("*.pdf")},
          {QStringLiteral("Text files (*.txt)"), QStringLiteral("*.txt")},
          {QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}};
}

void PutAtStart(FileText& file, const RichText& text) {
  file.MoveCaretToStart();
  file.Insert(kLineEnd);
  file.Insert(text);
  file.Insert(kLineEnd);
}

void PutAtEnd(FileText& file, const RichText& text) {
  file.MoveCaretToEnd();
  file.Insert(kLineEnd + kLineEnd + Separator() + kLineEnd + kLineEnd);
  file.Insert(text);
  file.Insert(kLineEnd);
}

}  // namespace

TextExport::TextExport(Texts texts, Names names, FileDialogs& dialogs, MessageBox& messages)
    : m_texts(std::move(texts)), m_names(names), m_dialogs(dialogs), m_messages(messages) {}

void TextExport::AppendToFile() {
  if (!m_texts.largeView.IsShown()) return m_texts.showNeedsLargeView();
  const QString name = m_dialogs.OpenFile({.title = QStringLiteral("Specify file to append text to"),
                                           .fileName = m_names.contents,
                                           .filters = RtfAndAllFiles(),
                                           .defaultExtension = QStringLiteral("rtf")});
  if (!name.isEmpty() && QFileInfo(name).isFile()) AppendTo(name);
}

// A style sheet is written from the formats of a text, so that its own text would be lost.
FileFormat TextExport::AppendFormatFor(const QString& name) {
  const FileFormat format = SaveFormatForName(name);
  return format == FileFormat::Css ? FileFormat::PlainText : format;
}

void TextExport::AppendTo(const QString& name) {
  const FileFormat format = AppendFormatFor(name);
  const std::unique_ptr<FileText> file = m_texts.makeScratch();
  // What could not be read would be lost by writing the file anew.
  if (!file->LoadFile(name, format)) return;
  bool toStart = false;
  if (!AskForStart(name, toStart)) return;
  const BusyPointer busy;
  if (!m_texts.largeView.HasSelection()) m_texts.largeView.SelectAll();
  (toStart ? PutAtStart : PutAtEnd)(*file, m_texts.largeView.Selection());
  file->SaveFile(name, format);
  QThread::msleep(kAppendPause);
}

bool TextExport::AskForStart(const QString& name, bool& toStart) {
  const QString what = m_texts.largeView.HasSelection() ? QStringLiteral("selection") : QStringLiteral("text");
  const MessageAnswer answer = m_messages.Show(
      {.text = QStringLiteral("Append %1 to start of this file (otherwise to end) ?\r\n\r\n%2").arg(what, name),
       .icon = MessageIcon::Question,
       .buttons = MessageButtons::YesNoCancel});
  toStart = answer == MessageAnswer::Yes;
  return toStart || answer == MessageAnswer::No;
}

void TextExport::SaveLargeView() {
  if (!m_texts.largeView.IsShown()) return m_texts.showNeedsLargeView();
  Save(m_texts.largeView, QStringLiteral("Specify a name for file"), m_names.contents);
}

void TextExport::SaveCumulative() {
  if (!m_texts.cumulative.IsShown())
    return m_messages.ShowInformation(QStringLiteral("Cumulative clipboard window not visible; toggle with Ctrl-Y."));
  Save(m_texts.cumulative, QStringLiteral("Save cumulative clipboard text to file"), m_names.cumulative);
}

void TextExport::Save(FileText& text, const QString& title, QString& name) {
  const QString chosen = m_dialogs.SaveFile(
      {.title = title, .fileName = name, .filters = SavedKinds(), .defaultExtension = QStringLiteral("rtf")});
  if (chosen.isEmpty()) return;
  name = chosen;
  if (text.SaveFile(name, SaveFormatForName(name))) text.SetModified(false);
}

}  // namespace snipdeck
