// qm_snipdeck_holder: keeps on the clipboard what QM_Snipdeck had there when it ended. It is started by that program
// and gets everything through its standard input; it ends when somebody else copies or the display goes.
#include <unistd.h>

#include "platform/x11/holder/held_selection.h"

using namespace snipdeck::holder;

namespace {

std::optional<std::string> ReadInput(std::uint64_t size) {
  std::string bytes(size, '\0');
  std::uint64_t got = 0;
  while (got < size) {
    const ssize_t count = read(STDIN_FILENO, bytes.data() + got, size - got);
    if (count <= 0) return std::nullopt;
    got += static_cast<std::uint64_t>(count);
  }
  return bytes;
}

}  // namespace

int main() {
  const auto payload = Read(ReadInput);
  // It outlives the folder in which it was started, too.
  if (!payload || chdir("/") != 0) return 2;
  HeldSelection selection(*payload);
  if (!selection.Take()) return 1;
  if (write(STDOUT_FILENO, &kTaken, 1) != 1) return 1;
  close(STDIN_FILENO);
  close(STDOUT_FILENO);
  selection.Serve();
  return 0;
}
