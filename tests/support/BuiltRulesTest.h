#pragma once

#include "FCReleaser.h"

#include <QString>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

class DCharacter;

namespace hoardtest {

// A test against the built rules database and the ready objects, with a fresh user folder of
// its own; failures are kept quiet.
class BuiltRulesTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A path below the user folder.
    QString UserPath(const QString& relative) const { return mUser.filePath(relative); }

    // The ready race alone as a creature, as `hoard monster show NAME` builds it; null if the
    // race cannot be read.
    static FCRef<DCharacter> Monster(const QString& race);

    // A lawful good human paladin of the first level named NAME, saved as Characters/FILE in
    // the user folder.
    void SavePaladin(const QString& name, const QString& file) const;

    // The named child widget, or null and a test failure.
    template <typename T> static T* Child(const QWidget& parent, const QString& name) {
        auto* widget = parent.findChild<T*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }

    QTemporaryDir mUser;
};

// Parses a table from its text form and saves it as FOLDER/NAME.tbl.
void saveTable(const QString& folder, const QString& name, const QString& text);

} // namespace hoardtest
