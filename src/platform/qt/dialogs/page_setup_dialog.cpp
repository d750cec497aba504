#include "platform/qt/dialogs/page_setup_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPageSize>
#include <QRadioButton>
#include <QVBoxLayout>

#include "platform/qt/dialogs/check_choice.h"
#include "platform/qt/dialogs/length_box.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {
namespace {

constexpr double kSmallestSheet = 96;   // pixels
constexpr double kLargestSheet = 6336;  // pixels
constexpr double kWidestMargin = 2000;  // pixels
constexpr double kSameSize = 4;         // pixels within which a size is that of a paper

constexpr std::array kPapers = {QPageSize::A4,     QPageSize::A3,        QPageSize::A5,
                                QPageSize::A6,     QPageSize::B5,        QPageSize::Letter,
                                QPageSize::Legal,  QPageSize::Executive, QPageSize::Tabloid,
                                QPageSize::EnvelopeDL, QPageSize::EnvelopeC5};

QSizeF PixelsOf(QPageSize::PageSizeId paper) {
  return QPageSize::size(paper, QPageSize::Inch) * 96;
}

int PaperOfSize(QSizeF size) {
  if (size.width() > size.height()) size.transpose();
  for (std::size_t i = 0; i < kPapers.size(); ++i) {
    const QSizeF paper = PixelsOf(kPapers[i]);
    const bool isSame =
        std::abs(paper.width() - size.width()) < kSameSize && std::abs(paper.height() - size.height()) < kSameSize;
    if (isSame) return static_cast<int>(i);
  }
  return static_cast<int>(kPapers.size());
}

LengthBox* SizeBox(const QString& name) {
  auto* const box = new LengthBox(LengthBox::Unit::Ruler, kSmallestSheet, kLargestSheet);
  box->setObjectName(name);
  return box;
}

LengthBox* MarginBox() {
  return new LengthBox(LengthBox::Unit::Ruler, 0, kWidestMargin);
}

int Twips(const LengthBox& box) {
  return qRound(box.Length().value_or(0) * kTwipsPerPixel);
}

}  // namespace

TextPageSetupDialog::TextPageSetupDialog(const PageGeometry& page, QWidget* parent)
    : QDialog(parent),
      m_paper(new QComboBox),
      m_upright(new QRadioButton(tr("&Upright"))),
      m_wide(new QRadioButton(tr("Wi&de"))),
      m_width(SizeBox(QStringLiteral("width"))),
      m_height(SizeBox(QStringLiteral("height"))),
      m_margins{MarginBox(), MarginBox(), MarginBox(), MarginBox()} {
  setWindowTitle(tr("Page settings"));
  setObjectName(QStringLiteral("PageSetupDialog"));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(MakePaperGroup());
  column->addWidget(MakeMarginGroup());
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_paper, &QComboBox::activated, this, &TextPageSetupDialog::TakePaper);
  for (QRadioButton* button : {m_upright, m_wide}) connect(button, &QRadioButton::clicked, this, [this] { Turn(); });
  for (LengthBox* box : {m_width, m_height})
    connect(box, &LengthBox::valueChanged, this, &TextPageSetupDialog::SizeHasChanged);
  ShowSize(page.width / kTwipsPerPixel, page.height / kTwipsPerPixel);
  const int margins[] = {page.left, page.top, page.right, page.bottom};
  for (std::size_t i = 0; i < m_margins.size(); ++i) m_margins[i]->SetLength(margins[i] / kTwipsPerPixel);
}

QWidget* TextPageSetupDialog::MakePaperGroup() {
  for (const QPageSize::PageSizeId paper : kPapers) m_paper->addItem(QPageSize::name(paper));
  m_paper->addItem(tr("Other size"));
  auto* const group = new QGroupBox(tr("Paper"));
  auto* const grid = new QGridLayout(group);
  grid->addWidget(LabelFor(tr("&Size"), m_paper), 0, 0);
  grid->addWidget(m_paper, 0, 1, 1, 2);
  grid->addWidget(LabelFor(tr("&Width"), m_width), 1, 0);
  grid->addWidget(m_width, 1, 1);
  grid->addWidget(LabelFor(tr("&Height"), m_height), 2, 0);
  grid->addWidget(m_height, 2, 1);
  grid->addWidget(m_upright, 1, 2);
  grid->addWidget(m_wide, 2, 2);
  return group;
}

QWidget* TextPageSetupDialog::MakeMarginGroup() {
  const QString captions[] = {tr("&Left"), tr("&Top"), tr("&Right"), tr("&Bottom")};
  auto* const group = new QGroupBox(tr("Margins"));
  auto* const grid = new QGridLayout(group);
  for (int i = 0; i < 4; ++i) {
    LengthBox* const box = m_margins[static_cast<std::size_t>(i)];
    // Left beside right, top beside bottom.
    grid->addWidget(LabelFor(captions[i], box), i % 2, i / 2 * 2);
    grid->addWidget(box, i % 2, i / 2 * 2 + 1);
  }
  return group;
}

void TextPageSetupDialog::ShowSize(double width, double height) {
  m_isShowing = true;
  m_width->SetLength(width);
  m_height->SetLength(height);
  m_isShowing = false;
  SizeHasChanged();
}

void TextPageSetupDialog::SizeHasChanged() {
  if (m_isShowing) return;
  const QSizeF size(m_width->Length().value_or(0), m_height->Length().value_or(0));
  m_paper->setCurrentIndex(PaperOfSize(size));
  (size.width() > size.height() ? m_wide : m_upright)->setChecked(true);
}

void TextPageSetupDialog::TakePaper(int index) {
  if (index < 0 || index >= static_cast<int>(kPapers.size())) return;
  QSizeF size = PixelsOf(kPapers[static_cast<std::size_t>(index)]);
  if (m_wide->isChecked()) size.transpose();
  ShowSize(size.width(), size.height());
}

void TextPageSetupDialog::Turn() {
  const double width = m_width->Length().value_or(0);
  const double height = m_height->Length().value_or(0);
  if ((width > height) != m_wide->isChecked()) ShowSize(height, width);
}

PageGeometry TextPageSetupDialog::Page() const {
  return {Twips(*m_width),      Twips(*m_height),     Twips(*m_margins[0]),
          Twips(*m_margins[1]), Twips(*m_margins[2]), Twips(*m_margins[3])};
}

void RunPageSetupDialog(RichTextControl& control) {
  const PageGeometry before = control.Page();
  TextPageSetupDialog dialog(before, control.window());
  if (dialog.exec() != QDialog::Accepted || dialog.Page() == before) return;
  control.SetPage(dialog.Page());
  emit control.Edited();
}

}  // namespace snipdeck
