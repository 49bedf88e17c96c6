#pragma once

#include "TestSupport.h"

#include "FCArchive.h"
#include "FCObject.h"
#include "FCReleaser.h"

#include <QBuffer>
#include <QByteArray>
#include <QDataStream>
#include <QFile>
#include <QString>
#include <QUuid>

#include <memory>

namespace chartest {

// A GUID whose sixteen stored bytes are seed, seed + 1, ..., seed + 15.
inline QUuid guid(quint8 seed) {
    QByteArray bytes(16, '\0');
    for (int i = 0; i < 16; ++i)
        bytes[i] = char(quint8(seed + i));
    return QUuid::fromRfc4122(bytes);
}

template <typename T> using Ref = FCRef<T>;

// Runs `write(archive)` on a storing archive over memory and returns the bytes.
template <typename F> QByteArray storeWith(F&& write) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    FCArchive archive(&stream, FCArchive::Store);
    write(archive);
    return bytes;
}

inline QByteArray storeObject(const FCObject& object) {
    return hoardtest::storeObject(&object);
}

// Runs `read(archive)` on a loading archive over `bytes`; returns whether the archive is
// still good afterwards.
template <typename F> bool loadWith(const QByteArray& bytes, F&& read) {
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    FCArchive archive(&stream, FCArchive::Load);
    read(archive);
    return archive.IsOk();
}

// Reads one object of whatever class the bytes name; null on failure.
inline Ref<FCObject> loadObject(const QByteArray& bytes) {
    bool ok = false;
    Ref<FCObject> object(hoardtest::loadObject(bytes, &ok));
    return ok ? std::move(object) : Ref<FCObject>();
}

// The bytes the golden file holds for `className`: one "ClassName hex" line per saved object.
inline QByteArray goldenBytes(const char* className) {
    QFile file(QStringLiteral(HOARD_GOLDEN_RECORDS));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray prefix = QByteArray(className) + ' ';
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(prefix))
            return QByteArray::fromHex(line.mid(prefix.size()));
    }
    return {};
}

} // namespace chartest
