#pragma once

#include "FCString.h"

#include <QStringList>

// The list that CreateFileInfoList fills: the file names (without directory) that matched.
struct FCFileInfoList {
    int mCount = 0;
    QStringList mNames;
    QList<bool> mIsFile;
};

// File services over the program's relative paths. A path such as "Core\Races\*.rac" uses
// backslashes; "User\..." resolves against the user data folder, any other relative path
// against the data root (DOptions::mAppPath), and an absolute path stays as it is.
class FCFileManager {
public:
    static FCString ResolvePath(const FCString& path);

    // Lists the entries matching a mask such as "Core\Races\*.rac", sorted by name; the
    // pattern part matches without regard to case.
    static void CreateFileInfoList(const FCString& mask, FCFileInfoList& list);
    static bool IsFile(const FCFileInfoList& list, int index);
    static void DestroyFileInfolist(FCFileInfoList& list);

    static bool FileExists(const FCString& path);
    static bool MakeDirectory(const FCString& path);
    static bool RemoveFile(const FCString& path);
    // A name "base.ext" or "base N.ext" that no file in `directory` has yet.
    static bool FindUniqueFileName(const FCString& directory, const FCString& baseName,
                                   const FCString& extension, FCString& result);
};
