#pragma once

#include "Connection.h"
#include "DriverManager.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

// A fresh SQLite file in a temporary folder, opened through the odbc layer.
class SqliteFixture : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mDir.isValid());
        mPath = mDir.filePath(QStringLiteral("rules.db"));
        QFile file(mPath);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.close();
        mConnection.reset(odbc::DriverManager::getConnection(mPath));
    }

    void exec(const char* sql) { mConnection->execute(QString::fromUtf8(sql)); }

    QTemporaryDir mDir;
    QString mPath;
    std::unique_ptr<odbc::Connection> mConnection;
};
