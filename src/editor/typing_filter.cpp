#include "editor/typing_filter.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include "editor/caret_text.h"
#include "editor/editor_keys.h"
#include "editor/typographic_quotes.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

constexpr char16_t kTab = u'\t';

/// The character that a key types; 0 where it types none.
char16_t TypedBy(const QKeyEvent& event) {
  const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (isCommand || event.text().isEmpty()) return 0;
  const QChar first = event.text().front();
  return first == kTab || first.isPrint() || first.isSurrogate() ? first.unicode() : 0;
}

}  // namespace

TypingFilter::TypingFilter(RichTextControl& control, Host host)
    : QObject(&control), m_control(control), m_host(std::move(host)) {
  control.installEventFilter(this);
}

bool TypingFilter::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      return ClaimKey(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyPress: {
      const auto& key = static_cast<const QKeyEvent&>(*event);
      return KeyDown(key) || KeyPress(key);
    }
    case QEvent::InputMethod:
      return Compose(static_cast<const QInputMethodEvent&>(*event));
    default:
      return QObject::eventFilter(watched, event);
  }
}

// An accepted event comes back as a key; one that is not accepted goes to the menus.
bool TypingFilter::ClaimKey(QKeyEvent& event) const {
  const bool isOurs = CommandOfKey(event) != nullptr;
  if (!isOurs && !m_host.isMenuKey(event)) return false;
  event.setAccepted(isOurs);
  return true;
}

bool TypingFilter::KeyDown(const QKeyEvent& event) {
  const EditorHandler handler = CommandOfKey(event);
  if (handler) m_host.run(handler);
  return handler != nullptr;
}

bool TypingFilter::KeyPress(const QKeyEvent& event) {
  const char16_t typed = TypedBy(event);
  if (typed == kTab || typed > 32) m_host.markChanged();
  if (typed == kTab) return m_control.SelLength() > 0;
  const char16_t mark = TypographicMark(typed, CharacterBeforeCaret(m_control));
  if (mark != 0) m_control.SetSelText(QChar(mark));
  return mark != 0;
}

// Dead keys and on-screen keyboards come this way too.
bool TypingFilter::Compose(const QInputMethodEvent& event) {
  const bool replacesEarlier = event.replacementStart() != 0 || event.replacementLength() != 0;
  if (replacesEarlier) return false;
  const QString text = WithTypographicMarks(event.commitString(), CharacterBeforeCaret(m_control));
  if (text == event.commitString()) return false;
  QInputMethodEvent changed(event.preeditString(), event.attributes());
  changed.setCommitString(text);
  QCoreApplication::sendEvent(&m_control, &changed);
  return true;
}

}  // namespace snipdeck
