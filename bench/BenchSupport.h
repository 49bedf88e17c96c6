#pragma once

#include "DClassInfo.h"
#include "DDatabase.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DRace.h"

#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <QUuid>

#include <cstdlib>

namespace hoardbench {

// The installed data the benchmarks read: $HOARD_DATA, else the build's own.
inline QString dataDir() {
    const char* fromEnvironment = std::getenv("HOARD_DATA");
    return fromEnvironment ? QString::fromLocal8Bit(fromEnvironment)
                           : QStringLiteral(HOARD_DATA_BUILD_DIR);
}

// The guid of the class of that name in the started rules database; null if none.
inline QUuid classGuid(const QString& name) {
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        if (static_cast<const DClassInfo*>(info)->mName == name)
            return guid;
    }
    return QUuid();
}

// The rules database and the ready objects started as the programs start them, with a scratch
// user folder; both stopped again when it goes.
struct Library {
    QTemporaryDir userDir;
    bool ready = false;

    Library() {
        DOptions::mAppPath = FCString(dataDir());
        DOptions::SetUserDataPath(FCString(userDir.path()));
        ready = DDatabase::StartUp(FCString(dataDir() + "/rules.db"));
        if (ready)
            DObjectManager::StartUp();
    }
    ~Library() {
        if (ready)
            DObjectManager::ShutDown();
        DDatabase::ShutDown();
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

// The rules database and one humanoid race saved in a scratch user folder, shaped by `shape`
// before it is saved; `ok` once both are there.
struct UserRace {
    QTemporaryDir userDir;
    DFileObject* race = nullptr;
    bool ok = false;

    template <typename Shape> UserRace(const QString& name, Shape shape) {
        DOptions::SetUserDataPath(FCString(userDir.path()));
        QDir().mkpath(userDir.path() + "/Races");
        if (!DDatabase::StartUp(FCString(dataDir() + "/rules.db")))
            return;
        DRace made;
        made.SetClassGuid(classGuid("Humanoid"));
        shape(made);
        ok = made.SaveToFile(FCString(userDir.path() + "/Races/" + name + ".rac"));
        race = DObjectManager::CreateFileObject(kObjectRace, kFileUser, FCString(name + ".rac"));
    }
    ~UserRace() {
        if (race)
            race->Release();
        DDatabase::ShutDown();
    }
    UserRace(const UserRace&) = delete;
    UserRace& operator=(const UserRace&) = delete;
};

} // namespace hoardbench
