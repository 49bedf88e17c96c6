#include "DOptions.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

FCString DOptions::mAppPath;
FCString DOptions::mUserDataPath;
FCString DOptions::mTempPath;

FCString DOptions::GetUserDataPath() {
    if (mUserDataPath.isEmpty()) {
        QString base = qEnvironmentVariable("XDG_DATA_HOME");
        if (base.isEmpty())
            base = QDir::homePath() + "/.local/share";
        return FCString(base + "/hoard");
    }
    return mUserDataPath;
}

void DOptions::SetUserDataPath(const FCString& path) {
    mUserDataPath = path;
}

FCString DOptions::GetArtPath() {
    return FCString(mAppPath + "/Portraits");
}

FCString DOptions::GetTempPath() {
    if (mTempPath.isEmpty())
        return FCString(GetUserDataPath() + "/tmp");
    return mTempPath;
}

void DOptions::SetTempPath(const FCString& path) {
    mTempPath = path;
}

FCString DOptions::FindDefaultAppPath(const FCString& builtDataDir) {
    const QString fromEnvironment = qEnvironmentVariable("HOARD_DATA");
    if (!fromEnvironment.isEmpty())
        return FCString(fromEnvironment);
    if (QFileInfo(builtDataDir + "/rules.db").isFile())
        return builtDataDir;
    return FCString("/usr/share/hoard");
}
