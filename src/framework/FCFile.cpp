#include "FCFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

FCFile::FCFile(const QString& path) : mPath(path) {}

FCFile::~FCFile() {
    if (mWriteFile)
        mWriteFile->cancelWriting();
}

bool FCFile::open(int mode) {
    close();
    if (mode == ReadMode) {
        mReadFile = std::make_unique<QFile>(mPath);
        if (!QFileInfo(mPath).isFile() || !mReadFile->open(QIODevice::ReadOnly)) {
            mReadFile.reset();
            return false;
        }
        return true;
    }
    if (mode == WriteMode) {
        QDir().mkpath(QFileInfo(mPath).absolutePath());
        mWriteFile = std::make_unique<QSaveFile>(mPath);
        if (!mWriteFile->open(QIODevice::WriteOnly)) {
            mWriteFile.reset();
            return false;
        }
        return true;
    }
    return false;
}

bool FCFile::close() {
    bool ok = true;
    if (mReadFile) {
        mReadFile->close();
        mReadFile.reset();
    }
    if (mWriteFile) {
        // QSaveFile commits a file whose buffered tail failed to reach the disk (a full disk,
        // a file-size limit): flush first, and a failed write throws the new file away.
        if (!mWriteFile->flush() || mWriteFile->error() != QFileDevice::NoError) {
            mWriteFile->cancelWriting();
            mWriteFile->commit();
            ok = false;
        } else {
            ok = mWriteFile->commit();
        }
        mWriteFile.reset();
    }
    return ok;
}

QIODevice* FCFile::device() const {
    if (mReadFile)
        return mReadFile.get();
    return mWriteFile.get();
}
