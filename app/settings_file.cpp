// A save reads the whole file, changes one line and replaces the file. Qt's file classes do not say why they
// failed, so the reason is found by asking the system.
#include "app/settings_file.h"

#include "app/qt_text.h"
#include "app/settings_text.h"
#include "app/system.h"
#include "platform/failure.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QStorageInfo>
#include <QThread>
#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

namespace brindlewick {

namespace {

constexpr int maxWait = 2000;    // ms, for another program that saves or reads the file
constexpr int retryInterval = 5; // ms

QString settingsFolder() {
    return configFolder() + QStringLiteral("/Tessaly");
}

QString settingsPath() {
    return settingsFolder() + QStringLiteral("/Brindlewick.ini");
}

FailureNumber failureFor(std::error_code error) {
    if (error == std::errc::permission_denied || error == std::errc::read_only_file_system ||
        error == std::errc::operation_not_permitted)
        return FailureNumber::permissionDenied;
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory ||
        error == std::errc::file_exists || error == std::errc::filename_too_long)
        return FailureNumber::pathNotFound;
    if (error == std::errc::no_space_on_device)
        return FailureNumber::diskFull;
    return FailureNumber::deviceIoError;
}

/// The file's bytes; none if there is no file.
std::optional<QByteArray> readSettings() {
    const QString path = settingsPath();
    std::error_code error;
    const std::filesystem::file_status status =
        std::filesystem::status(QFileInfo(path).filesystemFilePath(), error);
    if (status.type() == std::filesystem::file_type::not_found)
        return std::nullopt;
    if (status.type() == std::filesystem::file_type::none)
        throw Failure(failureFor(error));
    // Reading a pipe could block for ever.
    if (status.type() != std::filesystem::file_type::regular)
        throw Failure(FailureNumber::permissionDenied);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(FailureNumber::permissionDenied);
    if (static_cast<std::uint64_t>(file.size()) > maxTextLength)
        throw Failure(FailureNumber::outOfMemory);
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw Failure(FailureNumber::deviceIoError);
    return bytes;
}

[[noreturn]] void failToWrite(QFileDevice::FileError error) {
    const QFileInfo folder(settingsFolder());
    const QFileInfo file(settingsPath());
    if (error == QFileDevice::ResourceError || QStorageInfo(folder.filePath()).bytesAvailable() == 0)
        throw Failure(FailureNumber::diskFull);
    if (!folder.isDir())
        throw Failure(FailureNumber::pathNotFound);
    if (!folder.isWritable() || file.isDir() || (file.exists() && !file.isWritable()))
        throw Failure(FailureNumber::permissionDenied);
    throw Failure(FailureNumber::deviceIoError);
}

void writeSettings(std::string_view bytes) {
    std::error_code error;
    std::filesystem::create_directories(QFileInfo(settingsFolder()).filesystemFilePath(), error);
    if (error)
        throw Failure(failureFor(error));
    const auto size = static_cast<qint64>(bytes.size());
    QElapsedTimer sinceFirst;
    sinceFirst.start();
    for (;;) {
        QSaveFile file(settingsPath());
        if (file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size && file.commit())
            return;
        const bool isBlocked = readersBlockReplacement && file.error() == QFileDevice::RenameError;
        if (!isBlocked || sinceFirst.elapsed() > maxWait)
            failToWrite(file.error());
        QThread::msleep(retryInterval);
    }
}

bool isKey(std::u16string_view key) {
    return !key.empty() && std::all_of(key.begin(), key.end(), [](char16_t unit) {
        return (unit >= u'0' && unit <= u'9') || ((unit | 0x20) >= u'a' && (unit | 0x20) <= u'z');
    });
}

} // namespace

std::u16string SettingsFile::GetSetting(std::u16string_view key, std::u16string_view defaultText) const {
    const QByteArray bytes = readSettings().value_or(QByteArray());
    const std::string_view file(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return settingInText(file, key).value_or(std::u16string(defaultText));
}

void SettingsFile::SaveSetting(std::u16string_view key, std::u16string_view value) {
    if (!isKey(key))
        throw Failure(FailureNumber::invalidProcedureCall);
    // The lock covers reading and writing. Without it a save still proceeds: a lost setting is better
    // than a window that does not respond.
    std::error_code ignored;
    std::filesystem::create_directories(QFileInfo(settingsFolder()).filesystemFilePath(), ignored);
    QLockFile lock(settingsPath() + QStringLiteral(".lock"));
    // QLockFile backs off; poll at a fixed interval so that a busy instance cannot starve this one.
    QElapsedTimer sinceFirst;
    sinceFirst.start();
    while (!lock.tryLock(0) && lock.error() == QLockFile::LockFailedError && sinceFirst.elapsed() < maxWait)
        QThread::msleep(retryInterval);
    const QByteArray bytes = readSettings().value_or(QByteArray());
    const std::string_view file(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    writeSettings(textWithSetting(file, key, value));
}

} // namespace brindlewick
