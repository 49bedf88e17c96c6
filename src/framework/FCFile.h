#pragma once

#include <QString>

#include <memory>

class QFile;
class QIODevice;
class QSaveFile;

// A file opened for reading or for an atomic write: a written file replaces the old one only
// when close() commits it, and an unclosed write leaves the old file as it was.
class FCFile {
public:
    enum OpenMode { ReadMode = 1, WriteMode = 2 };

    explicit FCFile(const QString& path);
    FCFile(const FCFile&) = delete;
    FCFile& operator=(const FCFile&) = delete;
    ~FCFile();

    bool open(int mode);
    // Commits a write; false if anything failed. Reading files just close.
    bool close();
    QIODevice* device() const;
    const QString& path() const { return mPath; }

private:
    QString mPath;
    std::unique_ptr<QFile> mReadFile;
    std::unique_ptr<QSaveFile> mWriteFile;
};
