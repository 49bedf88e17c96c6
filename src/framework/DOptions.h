#pragma once

#include "FCString.h"

// Where the program finds its data. The host sets these before start-up; the defaults suit
// a user without configuration.
class DOptions {
public:
    // Root of the installed, read-only data: rules database, Core objects, style sheets.
    static FCString mAppPath;

    // The data root to use when none is given: $HOARD_DATA, else `builtDataDir` when it holds
    // a rules database (a program run from its build tree), else the installed folder.
    static FCString FindDefaultAppPath(const FCString& builtDataDir);

    // User data folder: "User\..." paths resolve here ($XDG_DATA_HOME/hoard by default).
    static FCString GetUserDataPath();
    static void SetUserDataPath(const FCString& path);
    // Portrait images.
    static FCString GetArtPath();
    // Writable folder for working files of the output pipeline.
    static FCString GetTempPath();
    static void SetTempPath(const FCString& path);

private:
    static FCString mUserDataPath;
    static FCString mTempPath;
};
