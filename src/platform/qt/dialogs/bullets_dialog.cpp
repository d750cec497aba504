#include "platform/qt/dialogs/bullets_dialog.h"

#include <array>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QListWidget>
#include <QSpinBox>

#include "platform/qt/dialogs/check_choice.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {
namespace {

constexpr int kDeepestLevel = 9;
constexpr int kHighestStart = 32767;  // what files of other programs can say

struct Kind {
  QTextListFormat::Style style;
  const char* caption;
};
constexpr std::array kKinds = {
    Kind{QTextListFormat::ListStyleUndefined, QT_TRANSLATE_NOOP("TextBulletsDialog", "None")},
    Kind{QTextListFormat::ListDisc, QT_TRANSLATE_NOOP("TextBulletsDialog", "\u2022  Bullet")},
    Kind{QTextListFormat::ListCircle, QT_TRANSLATE_NOOP("TextBulletsDialog", "\u25e6  Circle")},
    Kind{QTextListFormat::ListSquare, QT_TRANSLATE_NOOP("TextBulletsDialog", "\u25aa  Square")},
    Kind{QTextListFormat::ListDecimal, QT_TRANSLATE_NOOP("TextBulletsDialog", "1  2  3")},
    Kind{QTextListFormat::ListLowerAlpha, QT_TRANSLATE_NOOP("TextBulletsDialog", "a  b  c")},
    Kind{QTextListFormat::ListUpperAlpha, QT_TRANSLATE_NOOP("TextBulletsDialog", "A  B  C")},
    Kind{QTextListFormat::ListLowerRoman, QT_TRANSLATE_NOOP("TextBulletsDialog", "i  ii  iii")},
    Kind{QTextListFormat::ListUpperRoman, QT_TRANSLATE_NOOP("TextBulletsDialog", "I  II  III")},
};
const QStringList kSuffixes = {QStringLiteral("."), QStringLiteral(")"), QString()};

}  // namespace

TextBulletsDialog::TextBulletsDialog(const ListTraits& traits, QWidget* parent)
    : QDialog(parent), m_kind(new QListWidget), m_suffix(new QComboBox), m_start(new QSpinBox), m_level(new QSpinBox) {
  setWindowTitle(tr("Bullets and numbering"));
  setObjectName(QStringLiteral("BulletsDialog"));
  for (const Kind& kind : kKinds) {
    m_kind->addItem(tr(kind.caption));
    if (kind.style == traits.style) m_kind->setCurrentRow(m_kind->count() - 1);
  }
  if (m_kind->currentRow() < 0) m_kind->setCurrentRow(0);
  m_suffix->addItems({tr("1.  full stop"), tr("1)  bracket"), tr("1  nothing")});
  m_suffix->setCurrentIndex(static_cast<int>(std::max<qsizetype>(0, kSuffixes.indexOf(traits.suffix))));
  m_start->setObjectName(QStringLiteral("start"));
  m_start->setRange(0, kHighestStart);
  m_start->setValue(traits.start);
  m_level->setRange(1, kDeepestLevel);
  m_level->setValue(traits.level);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const form = new QFormLayout(this);
  form->addRow(LabelFor(tr("&Kind"), m_kind));
  form->addRow(m_kind);
  form->addRow(tr("&After the number"), m_suffix);
  form->addRow(tr("&Start at"), m_start);
  form->addRow(tr("&Level"), m_level);
  form->addRow(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_kind, &QListWidget::currentRowChanged, this, &TextBulletsDialog::OfferDetails);
  connect(m_kind, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
  OfferDetails();
  m_kind->setFocus();
}

void TextBulletsDialog::OfferDetails() {
  const QTextListFormat::Style style = Traits().style;
  m_suffix->setEnabled(IsNumbered(style));
  m_start->setEnabled(IsNumbered(style));
  m_level->setEnabled(style != QTextListFormat::ListStyleUndefined);
}

ListTraits TextBulletsDialog::Traits() const {
  return {kKinds[static_cast<std::size_t>(std::max(0, m_kind->currentRow()))].style,
          kSuffixes[std::max(0, m_suffix->currentIndex())], m_level->value(), m_start->value()};
}

void RunBulletsDialog(RichTextControl& control) {
  const ListTraits before = ListAt(control.textCursor());
  TextBulletsDialog dialog(before, control.window());
  if (dialog.exec() != QDialog::Accepted) return;
  SetList(control.textCursor(), dialog.Traits());
  emit control.Edited();
}

}  // namespace snipdeck
