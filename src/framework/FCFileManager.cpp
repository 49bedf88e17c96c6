#include "FCFileManager.h"

#include "DOptions.h"

#include <QDir>
#include <QFileInfo>

FCString FCFileManager::ResolvePath(const FCString& path) {
    QString unix = path;
    unix.replace('\\', '/');
    if (QDir::isAbsolutePath(unix))
        return FCString(unix);
    static const QString userPrefix = QStringLiteral("User/");
    if (unix.startsWith(userPrefix, Qt::CaseInsensitive))
        return FCString(DOptions::GetUserDataPath() + "/" + unix.mid(userPrefix.size()));
    if (DOptions::mAppPath.isEmpty())
        return FCString(unix);
    return FCString(DOptions::mAppPath + "/" + unix);
}

void FCFileManager::CreateFileInfoList(const FCString& mask, FCFileInfoList& list) {
    DestroyFileInfolist(list);
    const QFileInfo info(ResolvePath(mask));
    QDir dir = info.absoluteDir();
    if (!dir.exists())
        return;
    const QFileInfoList entries =
        dir.entryInfoList({info.fileName()}, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                          QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo& entry : entries) {
        list.mNames.append(entry.fileName());
        list.mIsFile.append(entry.isFile());
    }
    list.mCount = int(list.mNames.size());
}

bool FCFileManager::IsFile(const FCFileInfoList& list, int index) {
    return index >= 0 && index < list.mCount && list.mIsFile[index];
}

void FCFileManager::DestroyFileInfolist(FCFileInfoList& list) {
    list.mCount = 0;
    list.mNames.clear();
    list.mIsFile.clear();
}

bool FCFileManager::FileExists(const FCString& path) {
    return QFileInfo(ResolvePath(path)).isFile();
}

bool FCFileManager::MakeDirectory(const FCString& path) {
    return QDir().mkpath(ResolvePath(path));
}

bool FCFileManager::RemoveFile(const FCString& path) {
    return QFile::remove(ResolvePath(path));
}

bool FCFileManager::FindUniqueFileName(const FCString& directory, const FCString& baseName,
                                       const FCString& extension, FCString& result) {
    const QDir dir(ResolvePath(directory));
    const QString suffix = extension.isEmpty() ? QString() : "." + extension;
    for (int n = 1; n < 100000; ++n) {
        const QString name =
            n == 1 ? baseName + suffix : QString("%1 %2%3").arg(baseName).arg(n).arg(suffix);
        if (!dir.exists(name)) {
            result = FCString(name);
            return true;
        }
    }
    return false;
}
