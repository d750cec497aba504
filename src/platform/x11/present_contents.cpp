#include "platform/x11/present_contents.h"

#include <algorithm>

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/x11/event_pause.h"
#include "platform/x11/target_content.h"

namespace snipdeck {

namespace {

constexpr qint64 kMergeMs = 1000;
constexpr qint64 kMergeBytes = qint64{256} << 20;
constexpr std::size_t kMergeTargets = 256;
constexpr int kClaims = 5;
constexpr int kClaimPauseMs = 20;

bool IsOneOf(const QByteArray& name, std::span<const char* const> names) {
  return std::any_of(names.begin(), names.end(), [&](const char* other) { return name == other; });
}

/// Numbers of things in the server, which mean nothing as bytes.
bool IsServerResource(const QByteArray& target) {
  return target == "PIXMAP" || target == "BITMAP" || target == "COMPOUND_TEXT";
}

bool Offers(const OfferedData& data, const QByteArray& name) {
  return std::any_of(data.begin(), data.end(), [&](const auto& offer) { return offer.first == name; });
}

QByteArray BestText(const std::vector<QByteArray>& targets) {
  for (const char* name : TextTargets()) {
    if (std::find(targets.begin(), targets.end(), name) != targets.end()) return name;
  }
  return {};
}

}  // namespace

OfferedData OffersOfText(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  return {{"text/plain", bytes}, {"text/plain;charset=utf-8", bytes}};
}

OfferedData OffersOfRtf(const QByteArray& rtf) {
  return {{"text/rtf", rtf}, {"application/rtf", rtf}, {"text/richtext", rtf}};
}

std::vector<QByteArray> PresentContents::Targets() {
  if (const QMimeData* own = OwnMimeData()) return TargetsOfMimeData(*own);
  return m_foreign.Targets();
}

Result<QByteArray> PresentContents::Read(const QByteArray& target) {
  if (const QMimeData* own = OwnMimeData()) return BytesOfMimeData(*own, target);
  return m_foreign.Read(target);
}

bool PresentContents::OwnerIsSilent() const {
  return !OwnMimeData() && m_foreign.OwnerIsSilent();
}

OfferedData PresentContents::ReadAll() {
  QElapsedTimer elapsed;
  elapsed.start();
  OfferedData data;
  qint64 bytesLeft = kMergeBytes;
  std::vector<QByteArray> targets = Targets();
  targets.resize(std::min(targets.size(), kMergeTargets));
  const QByteArray text = BestText(targets);
  for (const QByteArray& target : targets) {
    if (elapsed.elapsed() > kMergeMs || IsServerResource(target) || Offers(data, target)) continue;
    if (target != text && IsOneOf(target, TextTargets())) continue;
    const Result<QByteArray> bytes = Read(target);
    if (!bytes || bytes.Value().size() > bytesLeft) continue;
    bytesLeft -= bytes.Value().size();
    const auto offers =
        target == text ? OffersOfText(DecodeText(target, bytes.Value())) : OfferedData{{target, bytes.Value()}};
    data.insert(data.end(), offers.begin(), offers.end());
  }
  return data;
}

Outcome PresentContents::Replace(const OfferedData& offers) {
  for (int attempt = 0; attempt < kClaims; ++attempt) {
    if (Own(offers)) return Done{};
    // Qt's claim was older than the last change, as far as Qt knew the time; the events on their way bring it.
    HandleEventsFor(kClaimPauseMs);
  }
  return Failure{Failure::Kind::Refused, QStringLiteral("another program keeps the clipboard")};
}

bool PresentContents::Own(const OfferedData& offers) {
  auto* data = new QMimeData;
  for (const auto& [target, bytes] : offers) data->setData(QString::fromLatin1(target), bytes);
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->setMimeData(data);
  if (IsOwnWindow(Owner())) return true;
  // Qt believes to own what the server did not give it.
  clipboard->clear();
  return false;
}

Outcome PresentContents::Add(const OfferedData& offers) {
  OfferedData all = offers;
  for (auto& present : ReadAll()) {
    if (!Offers(all, present.first)) all.push_back(std::move(present));
  }
  return Replace(all);
}

Outcome PresentContents::Clear() {
  if (OwnsClipboard()) {
    QGuiApplication::clipboard()->clear();
  } else {
    m_foreign.TakeAway();
  }
  return Done{};
}

}  // namespace snipdeck
