#include "richtext/docx/docx_fields.h"

#include <algorithm>

#include "richtext/rtf/rtf_fields.h"

namespace snipdeck {
namespace {

constexpr std::size_t kDeepest = 200;
constexpr qsizetype kLongestInstruction = 64 * 1024;

}  // namespace

void DocxFields::Begin() {
  if (m_fields.size() < kDeepest) m_fields.emplace_back();
}

void DocxFields::Separate() {
  if (m_fields.empty()) return;
  Field& field = m_fields.back();
  field.inResult = true;
  field.link = HyperlinkTarget(field.instruction);
}

void DocxFields::End() {
  if (!m_fields.empty()) m_fields.pop_back();
}

void DocxFields::AddInstruction(QStringView text) {
  if (m_fields.empty() || m_fields.back().instruction.size() > kLongestInstruction) return;
  m_fields.back().instruction += text;
}

bool DocxFields::ShowsText() const {
  return std::all_of(m_fields.begin(), m_fields.end(), [](const Field& field) { return field.inResult; });
}

QString DocxFields::Link() const {
  const auto link =
      std::find_if(m_fields.rbegin(), m_fields.rend(), [](const Field& field) { return !field.link.isEmpty(); });
  return link == m_fields.rend() ? QString() : link->link;
}

}  // namespace snipdeck
