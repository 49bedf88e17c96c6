#include "FCArchive.h"

#include "FCFile.h"
#include "FCObject.h"

#include <QBuffer>
#include <QFileInfo>

#include <cstring>

FCArchive::FCArchive(QDataStream* stream, int openType, bool ownsStream)
    : mStream(stream), mOpenType(openType), mOwnsStream(ownsStream) {
    mStream->setByteOrder(QDataStream::BigEndian);
    mStream->setVersion(QDataStream::Qt_6_0);
    mStream->setFloatingPointPrecision(QDataStream::SinglePrecision);
}

FCArchive::~FCArchive() {
    if (mOwnsStream)
        delete mStream;
}

bool FCArchive::IsOk() const {
    return !mFailed && mStream->status() == QDataStream::Ok;
}

void FCArchive::SetFailed() {
    mFailed = true;
    if (IsLoading())
        mStream->setStatus(QDataStream::ReadCorruptData);
}

bool FCArchive::WriteHeader() {
    *mStream << kMagic << mSignature << mVersion;
    return IsOk();
}

bool FCArchive::ReadHeader() {
    quint32 magic = 0;
    *mStream >> magic >> mSignature >> mVersion;
    if (magic != kMagic)
        SetFailed();
    return IsOk();
}

bool FCArchive::WriteObject(const FCObject* object) {
    if (!object) {
        *mStream << quint16(0);
        return IsOk();
    }
    const char* name = object->GetClassInfoA()->GetClassName();
    const auto length = quint16(std::strlen(name));
    *mStream << length;
    mStream->writeRawData(name, length);
    // Serialize is one function for both directions, so it takes a non-const object; storing
    // leaves the object unchanged.
    const_cast<FCObject*>(object)->Serialize(*this);
    return IsOk();
}

FCObject* FCArchive::ReadObject(FCObject* into) {
    quint16 length = 0;
    *mStream >> length;
    if (!IsOk() || length == 0)
        return nullptr;
    if (length > kMaxClassNameLength || length > BytesRemaining()) {
        SetFailed();
        return nullptr;
    }
    char name[kMaxClassNameLength + 1] = {};
    // A NUL inside the stored name would let strcmp match a registered prefix of it.
    if (mStream->readRawData(name, length) != length || std::memchr(name, 0, length)) {
        SetFailed();
        return nullptr;
    }
    const FCClassInfo* info = FCClassInfo::Find(name);
    if (!info || (into && into->GetClassInfoA() != info) || mDepth >= kMaxDepth) {
        SetFailed();
        return nullptr;
    }
    FCObject* object = into ? into : info->CreateObject();
    if (!object) {
        SetFailed();
        return nullptr;
    }
    ++mDepth;
    object->Serialize(*this);
    --mDepth;
    if (!IsOk()) {
        if (!into)
            object->Release();
        return nullptr;
    }
    return object;
}

bool FCArchive::Read(void* data, qint64 length) {
    if (length < 0 || length > BytesRemaining()) {
        SetFailed();
        return false;
    }
    if (mStream->readRawData(static_cast<char*>(data), int(length)) != length)
        SetFailed();
    return IsOk();
}

bool FCArchive::Write(const void* data, qint64 length) {
    mStream->writeRawData(static_cast<const char*>(data), int(length));
    return IsOk();
}

template <typename T> static void transferScalar(FCArchive& archive, T& value) {
    if (archive.IsLoading()) {
        T read{};
        *archive.mStream >> read;
        value = archive.IsOk() ? read : T{};
    } else {
        *archive.mStream << value;
    }
}

void FCArchive::Transfer(qint32& value) {
    transferScalar(*this, value);
}
void FCArchive::Transfer(quint32& value) {
    transferScalar(*this, value);
}
void FCArchive::Transfer(qint64& value) {
    transferScalar(*this, value);
}
void FCArchive::Transfer(qint16& value) {
    transferScalar(*this, value);
}
void FCArchive::Transfer(float& value) {
    transferScalar(*this, value);
}

void FCArchive::Transfer(double& value) {
    // Doubles keep their precision; the stream's float setting is for floats only.
    mStream->setFloatingPointPrecision(QDataStream::DoublePrecision);
    transferScalar(*this, value);
    mStream->setFloatingPointPrecision(QDataStream::SinglePrecision);
}

void FCArchive::Transfer(bool& value) {
    quint8 raw = value ? 1 : 0;
    transferScalar(*this, raw);
    if (IsLoading())
        value = raw != 0;
}

void FCArchive::Transfer(QUuid& value) {
    transferScalar(*this, value);
}

void FCArchive::Transfer(QString& value) {
    if (IsStoring()) {
        *mStream << value;
        return;
    }
    quint32 bytes = 0;
    *mStream >> bytes;
    if (!IsOk()) {
        value.clear();
        return;
    }
    if (bytes == 0xFFFFFFFFu) {
        value = QString();
        return;
    }
    if (bytes % 2 != 0 || qint64(bytes) > BytesRemaining()) {
        SetFailed();
        value.clear();
        return;
    }
    QByteArray raw(qsizetype(bytes), Qt::Uninitialized);
    if (!Read(raw.data(), bytes)) {
        value.clear();
        return;
    }
    value.resize(qsizetype(bytes / 2));
    const auto* in = reinterpret_cast<const uchar*>(raw.constData());
    for (qsizetype i = 0; i < value.size(); ++i)
        value[i] = QChar(char16_t((in[2 * i] << 8) | in[2 * i + 1]));
}

qint32 FCArchive::TransferCount(qint32 count, qint64 minBytesEach) {
    Transfer(count);
    if (IsLoading() && (count < 0 || qint64(count) * minBytesEach > BytesRemaining())) {
        SetFailed();
        return 0;
    }
    return IsOk() ? count : 0;
}

qint64 FCArchive::BytesRemaining() const {
    QIODevice* device = mStream->device();
    return device ? device->bytesAvailable() : 0;
}

bool FCArchive::WriteFile(const QString& path, quint32 signature, quint32 version,
                          const FCObject* object) {
    FCFile file(path);
    if (!file.open(FCFile::WriteMode))
        return false;
    QDataStream stream(file.device());
    FCArchive archive(&stream, Store);
    archive.mSignature = signature;
    archive.mVersion = version;
    if (!archive.WriteHeader() || !archive.WriteObject(object))
        return false;
    return file.close();
}

FCObject* FCArchive::ReadFile(const QString& path, quint32 signature, bool headerOnly,
                              FCObject* into, const FCClassInfo* expected) {
    FCFile file(path);
    if (!file.open(FCFile::ReadMode))
        return nullptr;
    // The whole file is read at once: the length checks before each field then cost nothing,
    // where on the file itself every check and read asked the system for its size.
    QIODevice* device = file.device();
    if (device->size() > kMaxFileSize)
        return nullptr;
    QByteArray bytes = device->readAll();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    FCArchive archive(&stream, Load);
    archive.mHeaderOnly = headerOnly;
    archive.SetFilePath(QFileInfo(path).absoluteFilePath());
    if (!archive.ReadHeader() || archive.mSignature != signature)
        return nullptr;
    // Peek is not possible on every device, so the stored class is checked after creation.
    FCObject* object = archive.ReadObject(into);
    if (!object)
        return nullptr;
    if (expected && !object->IsKindOf(expected)) {
        if (!into)
            object->Release();
        return nullptr;
    }
    return object;
}
