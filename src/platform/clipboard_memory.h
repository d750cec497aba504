#pragma once

#include <QByteArray>
#include <QHash>

#include "platform/clipboard_functions.h"

namespace snipdeck {

/// Blocks behind numbers, where the platform has no memory handles of its own.
class ClipboardMemory {
 public:
  /// 0 when there is no memory for it.
  MemoryHandle Allocate(std::size_t size) {
    try {
      return Adopt(QByteArray(static_cast<qsizetype>(size), '\0'));
    } catch (const std::bad_alloc&) {
      return 0;
    }
  }
  MemoryHandle Adopt(QByteArray bytes) {
    m_blocks.insert(++m_last, std::move(bytes));
    return m_last;
  }
  char* Data(MemoryHandle block) { return m_blocks.contains(block) ? m_blocks[block].data() : nullptr; }
  bool Contains(MemoryHandle block) const { return m_blocks.contains(block); }
  QByteArray Bytes(MemoryHandle block) const { return m_blocks.value(block); }
  std::size_t Size(MemoryHandle block) const { return static_cast<std::size_t>(m_blocks.value(block).size()); }
  QByteArray Take(MemoryHandle block) { return m_blocks.take(block); }
  void FreeAll() { m_blocks.clear(); }
  qsizetype Count() const { return m_blocks.size(); }

 private:
  QHash<MemoryHandle, QByteArray> m_blocks;
  MemoryHandle m_last = 0;
};

}  // namespace snipdeck
