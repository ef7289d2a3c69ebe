#include "qt/editor/workspace/recovery_store.h"

#include "host/files/file_error.h"
#include "host/files/file_replacer.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QUuid>
#include <algorithm>
#include <utility>

namespace headerdtc::qt {
namespace {

namespace fs = std::filesystem;

constexpr const char* LockName = "lock";
constexpr const char* Extension = ".page";

QString lockFile(const fs::path& folder) {
    return QString::fromStdString((folder / LockName).string());
}

// A line of JSON, then base and page, byte for byte. Paths are bytes, not text.
std::string fileOf(const RecoveryCopy& copy) {
    const QByteArray path = QByteArray::fromStdString(copy.page.string()).toPercentEncoding("/");
    const QJsonObject header{
        {"page", QString::fromLatin1(path)},
        {"hasFile", copy.hasFile},
        {"when", copy.when.toString(Qt::ISODateWithMs)},
        {"baseSize", static_cast<qint64>(copy.base.size())},
    };
    return QJsonDocument(header).toJson(QJsonDocument::Compact).toStdString() + '\n' + copy.base +
           copy.bytes;
}

std::optional<RecoveryCopy> copyOf(const fs::path& file) {
    std::string bytes;
    try {
        bytes = readWholeFile(file).bytes;
    } catch (const FileError&) {
        return std::nullopt;
    }
    const auto end = bytes.find('\n');
    if (end == std::string::npos) return std::nullopt;
    const auto header =
        QJsonDocument::fromJson(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(end)))
            .object();
    const QByteArray page = QByteArray::fromPercentEncoding(header["page"].toString().toLatin1());
    const auto baseSize = static_cast<std::size_t>(header["baseSize"].toInteger(-1));
    if (page.isEmpty() || baseSize > bytes.size() - (end + 1)) return std::nullopt;
    RecoveryCopy copy;
    copy.page = page.toStdString();
    copy.hasFile = header["hasFile"].toBool();
    copy.when = QDateTime::fromString(header["when"].toString(), Qt::ISODateWithMs);
    copy.base = bytes.substr(end + 1, baseSize);
    copy.bytes = bytes.substr(end + 1 + baseSize);
    copy.copy = file;
    return copy;
}

void write(const fs::path& file, const std::string& bytes) {
    try {
        writeWholeFile(file, bytes, FileStamp::of(file));
    } catch (const FileError&) {
        // Without room for a copy the author's work goes on as before; the next one may succeed.
    }
}

// Whether the editor whose folder this is has ended. Taking its lock is the only sure way to tell.
bool isAbandoned(const fs::path& folder) {
    QLockFile lock(lockFile(folder));
    lock.setStaleLockTime(0);
    return lock.tryLock();
}

}  // namespace

RecoveryStore::RecoveryStore(fs::path folder)
    : folder_(std::move(folder)),
      own_(folder_ / QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString()) {
    writer_.setMaxThreadCount(1);
}

RecoveryStore::~RecoveryStore() {
    flush();
    if (!lock_) return;
    lock_->unlock();
    std::error_code ignored;
    fs::remove_all(own_, ignored);
}

bool RecoveryStore::open() {
    if (lock_) return true;
    std::error_code failure;
    fs::create_directories(own_, failure);
    if (failure) return false;
    // Pages may hold confidential text.
    fs::permissions(folder_, fs::perms::owner_all, failure);
    auto lock = std::make_unique<QLockFile>(lockFile(own_));
    lock->setStaleLockTime(0);
    if (!lock->tryLock()) return false;
    lock_ = std::move(lock);
    return true;
}

fs::path RecoveryStore::ownFile(const QString& key) const {
    return own_ / (key.toStdString() + Extension);
}

void RecoveryStore::keep(const QString& key, RecoveryCopy copy) {
    if (!open()) return;
    writer_.start([file = ownFile(key), copy = std::move(copy)] { write(file, fileOf(copy)); });
}

void RecoveryStore::forget(const QString& key) {
    if (!lock_) return;
    writer_.start([file = ownFile(key)] {
        std::error_code ignored;
        fs::remove(file, ignored);
    });
}

bool RecoveryStore::holds(const QString& key) const {
    return lock_ && FileStamp::of(ownFile(key)).size >= 0;
}

void RecoveryStore::flush() {
    writer_.waitForDone();
}

std::vector<RecoveryCopy> RecoveryStore::leftBehind() const {
    std::vector<RecoveryCopy> copies;
    std::error_code failure;
    for (const auto& session : fs::directory_iterator(folder_, failure)) {
        if (session.path() == own_ || !session.is_directory(failure)) continue;
        if (!isAbandoned(session.path())) continue;
        bool any = false;
        for (const auto& file : fs::directory_iterator(session.path(), failure)) {
            if (file.path().extension() != Extension) continue;
            if (auto copy = copyOf(file.path())) {
                copies.push_back(std::move(*copy));
                any = true;
            }
        }
        if (!any) fs::remove_all(session.path(), failure);
    }
    std::sort(copies.begin(), copies.end(),
              [](const auto& a, const auto& b) { return a.when > b.when; });
    return copies;
}

void RecoveryStore::discard(const RecoveryCopy& copy) {
    std::error_code ignored;
    fs::remove(copy.copy, ignored);
}

}  // namespace headerdtc::qt
