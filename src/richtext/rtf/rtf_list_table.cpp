#include "richtext/rtf/rtf_list_table.h"

#include <algorithm>

namespace snipdeck {
namespace {

constexpr qsizetype kMaxLists = 5000;
constexpr int kMaxStart = 1'000'000;

}  // namespace

const RtfList* RtfListTable::Find(int overrideNumber) const {
  const auto found = m_overrides.constFind(overrideNumber);
  return found == m_overrides.constEnd() || found->list.id == 0 ? nullptr : &found->list;
}

bool RtfListTable::Restarts(int overrideNumber) const {
  const auto found = m_overrides.constFind(overrideNumber);
  return found != m_overrides.constEnd() && found->restarts;
}

RtfListLevel* RtfListTable::CurrentLevel() {
  if (m_inOverride) {
    return m_overrideLevel >= 0 ? &m_override.list.levels[static_cast<std::size_t>(m_overrideLevel)] : nullptr;
  }
  return m_list.levelCount > 0 ? &m_list.levels[static_cast<std::size_t>(m_list.levelCount - 1)] : nullptr;
}

QString& RtfListTable::LevelText() {
  RtfListLevel* level = CurrentLevel();
  QString& text = level ? level->text : m_ignoredText;
  text.clear();
  return text;
}

bool RtfListTable::Word(std::string_view word, int value, bool) {
  return OverrideWord(word, value) || LevelWord(word, value);
}

bool RtfListTable::LevelWord(std::string_view word, int value) {
  if (word == "list") {
    m_list = {};
    m_inOverride = false;
  } else if (word == "listlevel") {
    if (m_inOverride) {
      if (m_overrideLevel >= 0) m_override.replaced[static_cast<std::size_t>(m_overrideLevel)] = true;
    } else if (m_list.levelCount < kListLevels) {
      ++m_list.levelCount;
    }
  } else if (RtfListLevel* level = CurrentLevel()) {
    if (word == "levelnfc" || word == "levelnfcn")
      level->format = std::clamp(value, 0, kNumberNone);
    else if (word == "levelstartat")
      level->start = std::clamp(value, 0, kMaxStart);
    else if (const RtfFont* font = word == "f" ? m_fonts.Find(value) : nullptr)
      level->symbols = font->symbol;
    else if (word == "li")
      level->leftIndent = std::clamp(value, -31680, 31680);
    else if (word == "fi")
      level->firstLine = std::clamp(value, -31680, 31680);
    else
      return false;
    if (word == "levelstartat" && m_inOverride)
      m_override.starts[static_cast<std::size_t>(m_overrideLevel)] = level->start;
  } else {
    return false;
  }
  return true;
}

bool RtfListTable::OverrideWord(std::string_view word, int value) {
  if (word == "listid") {
    if (m_inOverride) {
      m_override.listId = value;
    } else if (m_lists.size() < kMaxLists) {
      m_list.id = value;
      m_lists.insert(value, m_list);
    }
  } else if (word == "listoverride") {
    FinishOverride();
    m_inOverride = true;
  } else if (word == "ls") {
    m_overrideNumber = value;
  } else if (word == "lfolevel") {
    m_overrideLevel = std::min(m_overrideLevel + 1, kListLevels - 1);
  } else if (word == "listoverridestartat") {
    m_override.restarts = true;
  } else {
    return false;
  }
  return true;
}

void RtfListTable::FinishOverride() {
  if (m_inOverride && m_overrideNumber > 0 && m_overrides.size() < kMaxLists) {
    Override finished = m_override;
    const RtfList base = m_lists.value(finished.listId);
    for (std::size_t i = 0; i < kListLevels; ++i) {
      RtfListLevel& level = finished.list.levels[i];
      if (!finished.replaced[i]) level = base.levels[i];
      if (finished.starts[i] >= 0) level.start = finished.starts[i];
    }
    finished.list.id = base.id;
    finished.list.levelCount = base.levelCount;
    m_overrides.insert(m_overrideNumber, finished);
  }
  m_override = {};
  m_override.starts.fill(-1);
  m_override.replaced.fill(false);
  m_overrideNumber = 0;
  m_overrideLevel = -1;
}

void RtfListTable::Close() {
  FinishOverride();
  m_inOverride = false;
}

}  // namespace snipdeck
