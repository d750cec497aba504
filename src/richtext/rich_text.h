#pragma once

#include <memory>

#include <QByteArrayView>
#include <QString>
#include <QStringList>

class QTextCursor;
class QTextDocument;
class QTextFrameFormat;
class QThread;

namespace snipdeck {

struct FlowText;

/// Whom a text is read for: a box shows the body alone, a document keeps headers and footers too.
enum class ReadFor { Box, Document };

/// A piece of formatted text. It is read once, never changes, and is shared by all that show or keep it: a copy costs a
/// reference. Reading is lenient: whatever the bytes are, what can be shown of them is shown, and what was dropped is
/// told by Warnings(). Nothing in the bytes makes it touch the network or the disk.
class RichText {
 public:
  RichText();

  /// RTF, also cut short, with leading junk or without its last braces. HTML wrapped in RTF comes out as what it shows.
  static RichText FromRtf(QByteArrayView rtf, ReadFor purpose = ReadFor::Box);
  /// HTML: a whole document, a fragment, or a clipboard payload with its header of offsets.
  static RichText FromHtml(QByteArrayView html);
  /// Plain text with line ends of any kind.
  static RichText FromPlainText(const QString& text);
  /// What another reader left.
  static RichText FromFlow(FlowText&& text, const QStringList& warnings);
  /// The characters [begin, end) of `document`, with their formats; end -1 means to the end.
  static RichText FromDocument(const QTextDocument& document, int begin = 0, int end = -1);

  bool IsEmpty() const;
  /// Paragraphs are separated by "\n"; the last one has none unless it is empty.
  QString PlainText() const;
  /// The characters alone, a line for each paragraph and cell: quicker than PlainText where there are tables.
  QString Characters() const;
  /// How many characters it has, about: enough to tell whether it will take long to show.
  qsizetype Length() const;
  /// Whether there are tables or frames among its paragraphs.
  bool HasFrames() const;
  /// The text as RTF; written at the first call, then kept.
  QByteArray Rtf() const;
  /// Puts the text in place of the cursor's selection and leaves the cursor behind it. One undo step.
  void InsertAt(QTextCursor& cursor) const;
  /// The text as its reader left it, for who inserts it piece by piece; null where it is a document already.
  std::shared_ptr<const FlowText> Flow() const;
  /// The text as a document of its own, made at the first call; not to be changed.
  const QTextDocument& Document() const;
  /// What it says of its page, as properties.
  QTextFrameFormat Page() const;
  /// Gives the text to another thread, which alone uses it from then on; called on the thread that has it.
  void MoveToThread(QThread* thread) const;
  /// What the reader dropped or repaired, in words for a developer.
  QStringList Warnings() const;

 private:
  struct Data;
  explicit RichText(std::shared_ptr<Data> data);
  std::shared_ptr<Data> m_data;
};

}  // namespace snipdeck
