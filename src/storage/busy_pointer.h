#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace snipdeck {

/// The busy mouse pointer, for as long as this lives or until a message restores the normal one.
class BusyPointer {
 public:
  BusyPointer() { QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor)); }
  ~BusyPointer() { RestoreNormal(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

  static void RestoreNormal() {
    while (QGuiApplication::overrideCursor()) QGuiApplication::restoreOverrideCursor();
  }
};

}  // namespace snipdeck
