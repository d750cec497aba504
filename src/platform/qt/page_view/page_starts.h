#pragma once

#include <functional>
#include <memory>

#include <QBasicTimer>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTextDocument>

#include "platform/page_geometry.h"

namespace snipdeck {

class GradualCopy;
class PagedCopy;
class RichTextControl;

/// Where the printed pages begin in a text that a control shows without pages. A short text is looked at right away, a
/// longer one once nobody has changed it for a moment, bit by bit; until then the starts move along with the text.
/// Pages count from 1.
class PageStarts : public QObject {
 public:
  /// `found` is called when they are known after a while.
  explicit PageStarts(std::function<void()> found);
  ~PageStarts() override;

  /// Makes them those of what `control` shows now.
  void LookAt(const RichTextControl& control);

  /// 0 while it is not known, and for a text of more than three million characters.
  int Count() const { return m_count; }
  /// The page on which the character at `position` is printed; 0 while it is not known.
  int PageOf(int position) const;
  /// The position of the first character of a page that PageOf gave.
  int StartOf(int page) const { return m_starts.value(page - 1); }

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void Follow(QTextDocument* document);
  void Move(int position, int removed, int added);
  void Read(const PagedCopy& copy);

  const std::function<void()> m_found;
  QPointer<QTextDocument> m_document;
  const RichTextControl* m_control = nullptr;  // lives as long as its document
  int m_revision = -1;
  PageGeometry m_page;
  QList<int> m_starts;
  int m_count = 0;
  QBasicTimer m_waiting;
  std::unique_ptr<GradualCopy> m_copy;
};

}  // namespace snipdeck
