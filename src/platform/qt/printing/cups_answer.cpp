#include "platform/qt/printing/cups_answer.h"

#include <QLibrary>

namespace snipdeck {
namespace {

constexpr int kFirstError = 0x400;  // of IPP; what lies below says that the job was taken, perhaps with remarks
constexpr int kLibraryVersion = 2;

}  // namespace

// Of the library that Qt has loaded, if it has: the answer is kept there for each thread.
QString CupsComplaint() {
  QLibrary library(QStringLiteral("cups"), kLibraryVersion);
  const auto lastError = reinterpret_cast<int (*)()>(library.resolve("cupsLastError"));
  const auto lastText = reinterpret_cast<const char* (*)()>(library.resolve("cupsLastErrorString"));
  if (!lastError || !lastText) return {};
  const int answer = lastError();
  if (answer >= 0 && answer < kFirstError) return {};
  return QStringLiteral("%1 (0x%2)").arg(QString::fromUtf8(lastText())).arg(answer, 0, 16);
}

}  // namespace snipdeck
