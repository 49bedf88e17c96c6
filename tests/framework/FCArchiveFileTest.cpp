#include "FrameworkTestClasses.h"

#include "FCFile.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

constexpr quint32 kSignature = 0x08080808;
constexpr quint32 kVersion = 0x10001;

class FCArchiveFileTest : public ::testing::Test {
protected:
    QString path(const QString& name) const { return mDir.filePath(name); }

    QTemporaryDir mDir;
};

} // namespace

TEST_F(FCArchiveFileTest, WriteThenReadGivesAnEqualObject) {
    ASSERT_TRUE(mDir.isValid());
    const int before = TestCounted::sLive;
    const TestDerived original(42, "answer");
    const QString file = path("object.chr");
    ASSERT_TRUE(FCArchive::WriteFile(file, kSignature, kVersion, &original));

    // The file is the 12-byte header followed by the object.
    const QByteArray bytes = hoardtest::readFile(file);
    EXPECT_EQ(bytes.left(12).toHex(), QByteArray("484f41520808080800010001"));
    EXPECT_EQ(bytes.mid(12), fctest::storeObject(&original));

    FCObject* object =
        FCArchive::ReadFile(file, kSignature, false, nullptr, TestCounted::GetStaticClassInfo());
    auto* loaded = FCDynamicCast<TestDerived>(object);
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->GetRetainCount(), 1);
    EXPECT_EQ(loaded->mValue, 42);
    EXPECT_EQ(loaded->mExtra, QString("answer"));
    loaded->Release();

    // Reading into an existing object fills and returns that object.
    TestDerived target(1, "old");
    EXPECT_EQ(FCArchive::ReadFile(file, kSignature, false, &target, nullptr), &target);
    EXPECT_EQ(target.mValue, 42);
    EXPECT_EQ(target.mExtra, QString("answer"));
    EXPECT_EQ(target.GetRetainCount(), 1);
    EXPECT_EQ(TestCounted::sLive, before + 2);
}

TEST_F(FCArchiveFileTest, UnreadableFilesGiveNull) {
    ASSERT_TRUE(mDir.isValid());
    const int before = TestCounted::sLive;
    const TestDerived original(7, "seven");
    const QString good = path("good.rac");
    ASSERT_TRUE(FCArchive::WriteFile(good, kSignature, kVersion, &original));
    const QByteArray bytes = hoardtest::readFile(good);

    const QString truncated = path("truncated.rac");
    ASSERT_TRUE(hoardtest::writeFile(truncated, bytes.left(bytes.size() - 1)));
    const QString empty = path("empty.rac");
    ASSERT_TRUE(hoardtest::writeFile(empty, QByteArray()));
    const QString headerOnly = path("header.rac");
    ASSERT_TRUE(hoardtest::writeFile(headerOnly, bytes.left(12)));
    ASSERT_TRUE(QDir(mDir.path()).mkdir("folder.rac"));

    struct Case {
        const char* label;
        QString file;
        quint32 signature;
        const FCClassInfo* expected;
    };
    const Case cases[] = {
        {"wrong signature", good, 0x08080809, nullptr},
        {"signature of another kind", good, 0x10101010, TestCounted::GetStaticClassInfo()},
        {"object of another class", good, kSignature, TestText::GetStaticClassInfo()},
        {"object of a subclass of what is asked", good, kSignature,
         TestGrandChild::GetStaticClassInfo()},
        {"missing file", path("missing.rac"), kSignature, nullptr},
        {"missing folder", path("nowhere/missing.rac"), kSignature, nullptr},
        {"a folder", path("folder.rac"), kSignature, nullptr},
        {"truncated file", truncated, kSignature, nullptr},
        {"empty file", empty, kSignature, nullptr},
        {"header without object", headerOnly, kSignature, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(FCArchive::ReadFile(c.file, c.signature, false, nullptr, c.expected), nullptr);
        EXPECT_EQ(TestCounted::sLive, before + 1);
    }
    // The sound file itself is fine, so the failures above come from the cases.
    FCObject* object =
        FCArchive::ReadFile(good, kSignature, false, nullptr, TestDerived::GetStaticClassInfo());
    ASSERT_NE(object, nullptr);
    object->Release();
}

TEST_F(FCArchiveFileTest, AFailedWriteLeavesTheOldFileUntouched) {
    ASSERT_TRUE(mDir.isValid());
    const TestCounted original(3);
    const QString file = path("keep.rac");
    ASSERT_TRUE(FCArchive::WriteFile(file, kSignature, kVersion, &original));
    const QByteArray saved = hoardtest::readFile(file);
    ASSERT_FALSE(saved.isEmpty());

    const TestFailing failing;
    EXPECT_FALSE(FCArchive::WriteFile(file, kSignature, kVersion, &failing));
    EXPECT_EQ(hoardtest::readFile(file), saved);
    // No half-written file was left beside it either.
    EXPECT_EQ(QDir(mDir.path()).entryList(QDir::Files), QStringList{"keep.rac"});

    // A failed first write creates nothing.
    const QString fresh = path("fresh.rac");
    EXPECT_FALSE(FCArchive::WriteFile(fresh, kSignature, kVersion, &failing));
    EXPECT_FALSE(QFileInfo::exists(fresh));

    // A path that cannot be a file fails without touching what is there.
    ASSERT_TRUE(hoardtest::writeFile(path("plain"), "x"));
    EXPECT_FALSE(FCArchive::WriteFile(path("plain/inside.rac"), kSignature, kVersion, &original));
    EXPECT_EQ(hoardtest::readFile(path("plain")), QByteArray("x"));
}

TEST_F(FCArchiveFileTest, AnUnclosedWriteCommitsNothing) {
    ASSERT_TRUE(mDir.isValid());
    const QString file = path("partial.txt");
    ASSERT_TRUE(hoardtest::writeFile(file, "before"));
    {
        FCFile out(file);
        ASSERT_TRUE(out.open(FCFile::WriteMode));
        out.device()->write("after");
    }
    EXPECT_EQ(hoardtest::readFile(file), QByteArray("before"));

    FCFile out(file);
    ASSERT_TRUE(out.open(FCFile::WriteMode));
    out.device()->write("after");
    EXPECT_TRUE(out.close());
    EXPECT_EQ(hoardtest::readFile(file), QByteArray("after"));

    FCFile in(path("absent.txt"));
    EXPECT_FALSE(in.open(FCFile::ReadMode));
    EXPECT_FALSE(in.open(3));
}
