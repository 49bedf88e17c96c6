#pragma once

#include "FCArchive.h"
#include "FCObject.h"

#include <QBuffer>
#include <QByteArray>
#include <QDataStream>
#include <QFile>
#include <QString>
#include <QUuid>

#include <bit>
#include <initializer_list>
#include <memory>

namespace chartest {

// A GUID whose sixteen stored bytes are seed, seed + 1, ..., seed + 15.
inline QUuid guid(quint8 seed) {
    QByteArray bytes(16, '\0');
    for (int i = 0; i < 16; ++i)
        bytes[i] = char(quint8(seed + i));
    return QUuid::fromRfc4122(bytes);
}

// The bytes a record should produce, written out field by field in the archive's layout
// (big-endian numbers, GUIDs as their sixteen bytes).
class Bytes {
public:
    Bytes& name(const char* className) {
        const QByteArray text(className);
        u16(quint16(text.size()));
        mBytes += text;
        return *this;
    }
    Bytes& u8(quint8 value) {
        mBytes += char(value);
        return *this;
    }
    Bytes& u16(quint16 value) { return u8(quint8(value >> 8)).u8(quint8(value)); }
    Bytes& u32(quint32 value) { return u16(quint16(value >> 16)).u16(quint16(value)); }
    Bytes& i32(qint32 value) { return u32(quint32(value)); }
    Bytes& f32(float value) { return u32(std::bit_cast<quint32>(value)); }
    Bytes& guid(quint8 seed) {
        for (int i = 0; i < 16; ++i)
            u8(quint8(seed + i));
        return *this;
    }
    // A GUID field holding a whole number: the number in the first four bytes, then the last
    // twelve bytes of guid(seed).
    Bytes& packed(qint32 value, quint8 seed) {
        i32(value);
        for (int i = 4; i < 16; ++i)
            u8(quint8(seed + i));
        return *this;
    }
    // Same, over a null GUID.
    Bytes& packedNull(qint32 value) {
        i32(value);
        for (int i = 4; i < 16; ++i)
            u8(0);
        return *this;
    }
    Bytes& raw(const QByteArray& bytes) {
        mBytes += bytes;
        return *this;
    }
    const QByteArray& get() const { return mBytes; }

private:
    QByteArray mBytes;
};

struct Releaser {
    void operator()(FCObject* object) const {
        if (object)
            object->Release();
    }
};
template <typename T> using Ref = std::unique_ptr<T, Releaser>;

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
    return storeWith([&](FCArchive& archive) { archive.WriteObject(&object); });
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
    FCObject* object = nullptr;
    const bool ok = loadWith(bytes, [&](FCArchive& archive) { object = archive.ReadObject(); });
    if (!ok && object) {
        object->Release();
        object = nullptr;
    }
    return Ref<FCObject>(object);
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
