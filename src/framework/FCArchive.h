#pragma once

#include <QDataStream>
#include <QString>
#include <QUuid>

#include <cstdint>
#include <type_traits>

class FCObject;
class FCClassInfo;

// Reads or writes objects on a QDataStream; one Serialize function per class serves both ways.
//
// Byte layout (all numbers big-endian, stream version Qt 6.0, floats single precision):
//   file header, 12 bytes: u32 magic 0x484F4152 ("HOAR"), u32 signature, u32 version
//   object: u16 class-name length N (0 = null object), N ASCII bytes of the class name,
//           then the fields the class's Serialize transfers
//   i32/u32/float: 4 bytes; i64/double: 8; bool: 1; QUuid: 16 bytes in RFC order;
//   QString: u32 byte count (0xFFFFFFFF = null string) then UTF-16 big-endian code units
// Containers write their ownership mode and count before their elements.
//
// Reading never trusts a count: every count and length is checked against the bytes left
// before anything is allocated, and the first fault puts the archive in a failed state
// from which every later read yields zero.
class FCArchive {
public:
    enum OpenType { Load = 0, Store = 1 };
    static constexpr quint32 kMagic = 0x484F4152;
    static constexpr int kMaxClassNameLength = 64;
    static constexpr int kMaxDepth = 64;
    // Object files are small; a larger file is not one of ours.
    static constexpr qint64 kMaxFileSize = qint64(64) * 1024 * 1024;

    FCArchive(QDataStream* stream, int openType, bool ownsStream = false);
    FCArchive(const FCArchive&) = delete;
    FCArchive& operator=(const FCArchive&) = delete;
    ~FCArchive();

    bool IsLoading() const { return mOpenType == Load; }
    bool IsStoring() const { return mOpenType == Store; }
    bool IsOk() const;
    void SetFailed();

    bool WriteHeader();
    bool ReadHeader();

    // Writes the class name and the object's fields; null is allowed.
    bool WriteObject(const FCObject* object);
    // Null `into` creates the stored class; otherwise the fields are read into `into`, whose
    // class must be the stored one. A created object has a count of one. Null on failure or
    // for a stored null object (IsOk tells the two apart).
    FCObject* ReadObject(FCObject* into = nullptr);

    bool Read(void* data, qint64 length);
    bool Write(const void* data, qint64 length);

    void Transfer(qint32& value);
    void Transfer(quint32& value);
    void Transfer(qint64& value);
    void Transfer(qint16& value);
    void Transfer(float& value);
    void Transfer(double& value);
    void Transfer(bool& value);
    void Transfer(QUuid& value);
    void Transfer(QString& value);
    template <typename E>
    requires std::is_enum_v<E>
    void Transfer(E& value) {
        qint32 raw = static_cast<qint32>(value);
        Transfer(raw);
        if (IsLoading())
            value = static_cast<E>(raw);
    }
    template <typename T, int N> void TransferArray(T (&values)[N]) {
        for (T& value : values)
            Transfer(value);
    }

    // Reads a count and checks that `count` items of at least `minBytesEach` fit in what is
    // left; a negative or impossible count fails the archive and gives 0.
    qint32 TransferCount(qint32 count, qint64 minBytesEach);

    qint64 BytesRemaining() const;
    QDataStream* GetStream() const { return mStream; }
    const QString& GetFilePath() const { return mFilePath; }
    void SetFilePath(const QString& path) { mFilePath = path; }

    // Whole-file helpers used by every object file kind. Writing is atomic: the old file stays
    // untouched unless the new one was written completely.
    static bool WriteFile(const QString& path, quint32 signature, quint32 version,
                          const FCObject* object);
    // Returns the object (count one, or `into`), or null if the file cannot be opened, its
    // signature differs, its object is not of `expected`, or its bytes are bad.
    static FCObject* ReadFile(const QString& path, quint32 signature, bool headerOnly,
                              FCObject* into, const FCClassInfo* expected);

    // Public as the framework's callers use them directly.
    QDataStream* mStream;
    int mOpenType;
    quint32 mSignature = 0;
    quint32 mVersion = 0;
    bool mHeaderOnly = false;

private:
    bool mOwnsStream;
    bool mFailed = false;
    int mDepth = 0;
    QString mFilePath;
};
