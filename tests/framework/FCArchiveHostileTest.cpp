#include "FrameworkTestClasses.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define FCTEST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define FCTEST_ASAN 1
#endif
#endif

#ifdef FCTEST_ASAN
#include <atomic>

// From the sanitizer runtime; not every compiler ships its header.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(const volatile void*,
                                                                          std::size_t),
                                                         void (*onFree)(const volatile void*));
#else
#include <QFile>

#include <sys/resource.h>
#endif

using fctest::Bytes;
using fctest::loadObject;
using fctest::storeObject;

namespace {

// Live instances of every counting class, to prove that failed reads free what they built.
int liveObjects() {
    return TestCounted::sLive + TestNode::sLive;
}

TestNode* chain(int length) {
    TestNode* head = nullptr;
    for (int i = 0; i < length; ++i) {
        auto* node = new TestNode;
        node->mValue = i;
        node->mChild = head;
        head = node;
    }
    return head;
}

struct ImpossibleCase {
    const char* label;
    QByteArray bytes;
    qint64 remainingAfter; // bytes the failed read must leave unread; -1: not checked
};

// Lengths, counts, modes and class names that no sound file holds.
std::vector<ImpossibleCase> impossibleCases() {
    const QByteArray tail = QByteArray::fromHex("0102030405060708");
    const QByteArray value = QByteArray::fromHex("00000001");
    Bytes secondCut;
    secondCut.name("TestObjList").i32(2).i32(2).name("TestCounted").i32(1).name("TestCou");
    const int overLimit = FCArchive::kMaxClassNameLength + 1;
    return {
        {"string 0x7FFFFFFE bytes", Bytes().name("TestText").u32(0x7FFFFFFE).raw(tail).data(), 8},
        {"string 0xFFFFFFFE bytes", Bytes().name("TestText").u32(0xFFFFFFFE).raw(tail).data(), 8},
        {"string longer than the rest", Bytes().name("TestText").u32(10).raw(tail).data(), 8},
        {"string of odd length", Bytes().name("TestText").u32(3).raw(tail).data(), -1},
        {"int array 0x7FFFFFFF", Bytes().name("TestIntList").i32(0x7FFFFFFF).raw(tail).data(), 8},
        {"int array -1", Bytes().name("TestIntList").i32(-1).raw(tail).data(), 8},
        {"int array INT_MIN", Bytes().name("TestIntList").u32(0x80000000).raw(tail).data(), 8},
        {"int set 0x7FFFFFFF", Bytes().name("TestIntSet").i32(0x7FFFFFFF).raw(tail).data(), 8},
        {"int set -5", Bytes().name("TestIntSet").i32(-5).raw(tail).data(), 8},
        {"pointer array 0x7FFFFFFF",
         Bytes().name("TestObjList").i32(2).i32(0x7FFFFFFF).raw(tail).data(), 8},
        {"pointer array -1", Bytes().name("TestObjList").i32(1).i32(-1).raw(tail).data(), 8},
        {"pointer set 0x7FFFFFFF",
         Bytes().name("TestObjSet").i32(2).i32(0x7FFFFFFF).raw(tail).data(), 8},
        {"pointer map 0x7FFFFFFF",
         Bytes().name("TestObjMap").i32(1).i32(0x7FFFFFFF).raw(tail).data(), 8},
        {"ownership mode 3", Bytes().name("TestObjList").i32(3).i32(0).data(), -1},
        {"ownership mode -1", Bytes().name("TestObjSet").i32(-1).i32(0).data(), -1},
        {"ownership mode 0x7FFFFFFF", Bytes().name("TestObjMap").i32(0x7FFFFFFF).i32(0).data(), -1},
        {"borrowing array with an element",
         Bytes().name("TestObjList").i32(0).i32(1).name("TestCounted").i32(1).data(), -1},
        {"null element", Bytes().name("TestObjList").i32(2).i32(1).u16(0).data(), -1},
        {"null map element", Bytes().name("TestObjMap").i32(2).i32(1).i32(4).u16(0).data(), -1},
        {"element of a base class",
         Bytes().name("TestDerivedList").i32(2).i32(1).name("TestCounted").i32(1).data(), -1},
        {"element of an unrelated class",
         Bytes().name("TestObjList").i32(2).i32(1).name("TestText").u32(0xFFFFFFFF).data(), -1},
        {"second element truncated", secondCut.data(), -1},
        {"unknown class", Bytes().name("NoSuchClass").raw(value).data(), -1},
        {"abstract class", Bytes().name("TestAbstract").raw(value).data(), -1},
        {"the root class", Bytes().name("FCObject").raw(value).data(), -1},
        {"a registered base without factory", Bytes().name("TestMixin").raw(value).data(), -1},
        {"different case", Bytes().name("testcounted").raw(value).data(), -1},
        {"a registered name with trailing bytes",
         Bytes().u16(15).raw(QByteArray("TestCounted\0xyz", 15)).raw(value).data(), -1},
        {"name over the limit",
         Bytes().u16(overLimit).raw(QByteArray(overLimit, 'A')).raw(value).data(), -1},
        {"name length 0xFFFF", Bytes().u16(0xFFFF).raw(QByteArray(100, 'B')).data(), -1},
        {"name longer than the rest", Bytes().u16(11).raw("TestCou").data(), -1},
        {"half a length", Bytes().u8(0).data(), -1},
        {"nothing", QByteArray(), -1},
    };
}

#ifdef FCTEST_ASAN
// The sanitizer reserves far more address space than it uses, so a cap on it proves nothing;
// its allocator hooks show the size of every allocation instead.
std::atomic<std::size_t> gLargestAllocation{0};

void noteAllocation(const volatile void*, std::size_t size) {
    std::size_t seen = gLargestAllocation.load();
    while (size > seen && !gLargestAllocation.compare_exchange_weak(seen, size)) {
    }
}
void noteFree(const volatile void*) {}
#else
// Caps the address space at what the process maps now plus `headroom`, so that an
// allocation sized by a hostile count fails loudly instead of passing unseen.
bool capAddressSpace(rlim_t headroom) {
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return false;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (!line.startsWith("VmSize:"))
            continue;
        const rlim_t kilobytes = line.mid(7).trimmed().split(' ').value(0).toULongLong();
        rlimit limit{};
        if (kilobytes == 0 || getrlimit(RLIMIT_AS, &limit) != 0)
            return false;
        limit.rlim_cur = kilobytes * 1024 + headroom;
        return setrlimit(RLIMIT_AS, &limit) == 0;
    }
    return false;
}
#endif

} // namespace

TEST(FCArchiveHostileTest, ImpossibleLengthsCountsAndNamesFailBeforeReadingOn) {
    const std::vector<ImpossibleCase> cases = impossibleCases();
    const int before = liveObjects();
    for (const ImpossibleCase& c : cases) {
        SCOPED_TRACE(c.label);
        QDataStream stream(c.bytes);
        FCArchive archive(&stream, FCArchive::Load);
        FCObject* object = archive.ReadObject();
        EXPECT_EQ(object, nullptr);
        EXPECT_FALSE(archive.IsOk());
        if (c.remainingAfter >= 0) {
            EXPECT_EQ(archive.BytesRemaining(), c.remainingAfter);
        }
        if (object)
            object->Release();
        EXPECT_EQ(liveObjects(), before);
    }
}

TEST(FCArchiveHostileTest, ImpossibleLengthsAllocateNothingLarge) {
    constexpr std::size_t kLargest = 64 * 1024 * 1024; // far above any sound read here
    const std::vector<ImpossibleCase> cases = impossibleCases();
#ifdef FCTEST_ASAN
    static const bool installed =
        __sanitizer_install_malloc_and_free_hooks(noteAllocation, noteFree) != 0;
    ASSERT_TRUE(installed);
    for (const ImpossibleCase& c : cases) {
        SCOPED_TRACE(c.label);
        gLargestAllocation = 0;
        bool ok = true;
        EXPECT_EQ(loadObject(c.bytes, &ok), nullptr);
        EXPECT_FALSE(ok);
        EXPECT_LT(gLargestAllocation.load(), kLargest);
    }
#else
    // In a child process, so the cap cannot disturb other tests; a refused allocation ends it
    // with std::bad_alloc.
    EXPECT_EXIT(
        {
            if (!capAddressSpace(kLargest))
                std::_Exit(3);
            for (const ImpossibleCase& c : cases) {
                bool ok = true;
                FCObject* object = loadObject(c.bytes, &ok);
                if (object || ok)
                    std::_Exit(2);
            }
            std::_Exit(0);
        },
        ::testing::ExitedWithCode(0), "");
#endif
}

TEST(FCArchiveHostileTest, NestingIsBounded) {
    const int before = liveObjects();
    for (int length : {1, FCArchive::kMaxDepth}) {
        SCOPED_TRACE(length);
        TestNode* original = chain(length);
        bool ok = false;
        auto* loaded = FCDynamicCast<TestNode>(loadObject(storeObject(original), &ok));
        original->Release();
        EXPECT_TRUE(ok);
        ASSERT_NE(loaded, nullptr);
        int count = 0;
        for (const TestNode* node = loaded; node; node = node->mChild) {
            EXPECT_EQ(node->mValue, length - 1 - count);
            ++count;
        }
        EXPECT_EQ(count, length);
        loaded->Release();
    }
    EXPECT_EQ(liveObjects(), before);

    TestNode* tooDeep = chain(FCArchive::kMaxDepth + 1);
    bool ok = true;
    EXPECT_EQ(loadObject(storeObject(tooDeep), &ok), nullptr);
    EXPECT_FALSE(ok);
    tooDeep->Release();
    EXPECT_EQ(liveObjects(), before);

    // A hostile file nests far deeper than any stack could follow.
    Bytes deep;
    for (int i = 0; i < 200000; ++i)
        deep.name("TestNode").i32(i);
    deep.u16(0);
    ok = true;
    EXPECT_EQ(loadObject(deep.data(), &ok), nullptr);
    EXPECT_FALSE(ok);
    EXPECT_EQ(liveObjects(), before);
}

TEST(FCArchiveHostileTest, RepeatedElementsInAFileDoNotLeak) {
    const int before = liveObjects();
    Bytes sameTwice;
    sameTwice.name("TestObjSet").i32(2).i32(2);
    Bytes keyTwice;
    keyTwice.name("TestObjMap").i32(2).i32(2);
    for (int i = 1; i <= 2; ++i) {
        sameTwice.name("TestCounted").i32(5);
        keyTwice.i32(1).name("TestCounted").i32(10 * i);
    }
    for (const QByteArray& bytes : {sameTwice.data(), keyTwice.data()}) {
        bool ok = false;
        FCObject* object = loadObject(bytes, &ok);
        if (auto* set = FCDynamicCast<TestObjSet>(object)) {
            EXPECT_EQ(set->mItems.GetCount(), 1);
        }
        if (auto* map = FCDynamicCast<TestObjMap>(object)) {
            EXPECT_EQ(map->mItems.GetCount(), 1);
        }
        EXPECT_EQ(object != nullptr, ok);
        if (object)
            object->Release();
        EXPECT_EQ(liveObjects(), before);
    }
}
