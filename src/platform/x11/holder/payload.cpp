#include "platform/x11/holder/payload.h"

#include <cstring>

namespace snipdeck::holder {

namespace {

constexpr std::uint64_t kMaxBytes = std::uint64_t{512} << 20;
constexpr std::uint64_t kMaxOffers = 4096;

void AppendNumber(std::string& bytes, std::uint64_t number) {
  bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void AppendText(std::string& bytes, const std::string& text) {
  AppendNumber(bytes, text.size());
  bytes += text;
}

std::optional<std::uint64_t> ReadNumber(const ReadBytes& read) {
  std::uint64_t number = 0;
  const auto bytes = read(sizeof number);
  if (!bytes) return std::nullopt;
  std::memcpy(&number, bytes->data(), sizeof number);
  return number;
}

std::optional<std::string> ReadText(const ReadBytes& read, std::uint64_t& bytesLeft) {
  const auto size = ReadNumber(read);
  if (!size || *size > bytesLeft) return std::nullopt;
  bytesLeft -= *size;
  return read(*size);
}

}  // namespace

std::string Write(const Payload& payload) {
  std::string bytes;
  AppendNumber(bytes, payload.expectedOwner);
  AppendNumber(bytes, payload.offers.size());
  for (const auto& [target, data] : payload.offers) {
    AppendText(bytes, target);
    AppendText(bytes, data);
  }
  return bytes;
}

std::optional<Payload> Read(const ReadBytes& read) {
  Payload payload;
  const auto owner = ReadNumber(read);
  const auto count = ReadNumber(read);
  if (!owner || !count || *count > kMaxOffers) return std::nullopt;
  payload.expectedOwner = static_cast<std::uint32_t>(*owner);
  std::uint64_t bytesLeft = kMaxBytes;
  for (std::uint64_t i = 0; i < *count; ++i) {
    auto target = ReadText(read, bytesLeft);
    if (!target) return std::nullopt;
    auto data = ReadText(read, bytesLeft);
    if (!data) return std::nullopt;
    payload.offers.emplace_back(std::move(*target), std::move(*data));
  }
  return payload;
}

}  // namespace snipdeck::holder
