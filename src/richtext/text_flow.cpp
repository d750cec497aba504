#include "richtext/text_flow.h"

namespace snipdeck {

void Flow::AddRun(QStringView characters, int format) {
  if (characters.isEmpty()) return;
  text.append(characters);
  const auto length = static_cast<std::int32_t>(characters.size());
  if (!items.empty() && items.back().kind == FlowItem::Kind::Run && items.back().format == format) {
    items.back().length += length;
  } else {
    items.push_back({FlowItem::Kind::Run, format, length});
  }
}

void Flow::Prepend(const QString& characters, int format) {
  if (characters.isEmpty()) return;
  const auto length = static_cast<std::int32_t>(characters.size());
  text.prepend(characters);
  if (!items.empty() && items.front().kind == FlowItem::Kind::Run) format = items.front().format;
  items.insert(items.begin(), {FlowItem::Kind::Run, format, length});
}

void Flow::EndParagraph(int paragraphFormat, int markFormat) {
  items.push_back({FlowItem::Kind::ParagraphEnd, paragraphFormat, markFormat});
}

void Flow::AddTable(std::unique_ptr<TableFlow> table) {
  tables.push_back(std::move(table));
  items.push_back({FlowItem::Kind::Table, 0, 0});
}

void Flow::Append(Flow&& other) {
  if (IsEmpty()) {
    *this = std::move(other);
  } else {
    text.append(other.text);
    items.insert(items.end(), other.items.begin(), other.items.end());
    for (auto& table : other.tables) tables.push_back(std::move(table));
  }
  other.Clear();
}

void Flow::Clear() {
  text.clear();
  items.clear();
  tables.clear();
}

}  // namespace snipdeck
