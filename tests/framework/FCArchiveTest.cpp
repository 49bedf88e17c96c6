#include "FrameworkTestClasses.h"

#include <gtest/gtest.h>


#include <functional>
#include <limits>
#include <vector>

using fctest::loadObject;
using fctest::storeObject;

namespace {

const QUuid kGuidA("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}");
const QUuid kGuidB("{00112233-4455-6677-8899-aabbccddeeff}");

template <typename T> void addOwned(FCPointerArray<T>& array, T* object) {
    array.Add(object);
    if (array.GetOwnership() == kFCRetained)
        object->Release();
}

// A holder of one pointer container in `mode` with `elements` counted elements.
template <typename Holder> FCObject* makeHolder(int mode, int elements) {
    auto* holder = new Holder;
    holder->mItems.SetOwnership(mode);
    for (int i = 0; i < elements; ++i) {
        auto* object = new TestCounted(i);
        if constexpr (requires { holder->mItems.SetAt(i, object); })
            holder->mItems.SetAt(i, object);
        else
            holder->mItems.Add(object);
        if (mode == kFCRetained)
            object->Release();
    }
    return holder;
}

template <typename Holder> int modeOfHolder(const FCObject* holder) {
    return static_cast<const Holder*>(holder)->mItems.GetOwnership();
}

void fill(TestFields& f) {
    f.mInt32 = std::numeric_limits<qint32>::min();
    f.mUInt32 = 0xFFFFFFFEu;
    f.mInt64 = -(qint64(1) << 40) - 7;
    f.mInt16 = -12345;
    f.mFloat = -1.5f;
    f.mDouble = 0.1; // not a float: single precision would change it
    f.mBool = true;
    f.mBoolFalse = false;
    f.mGuid = kGuidA;
    f.mEmpty = QLatin1String("");
    f.mNull = QString();
    f.mText = QString::fromUtf8("\xC3\x86lfwine \xE2\x80\x94 \xE9\xBE\x8D \xF0\x9F\x90\x89");
    f.mColor = TestColor::Blue;
    f.mPlain = kTestLast;
    f.mTriple[0] = 7;
    f.mTriple[1] = -8;
    f.mTriple[2] = 9;
    f.mNames[0] = "north";
    f.mNames[1] = QLatin1String("");
    for (int value : {3, -1, 3})
        f.mInts.Add(value);
    for (const QUuid& guid : {kGuidA, QUuid(), kGuidB})
        f.mGuids.Add(guid);
    f.mTexts.Add("a");
    f.mTexts.Add(QLatin1String(""));
    f.mTexts.Add(QString());
    f.mTexts.Add(QString::fromUtf8("\xC3\xBC"));
    f.mPairs.Add({1, "one"});
    f.mPairs.Add({-2, QString()});
    for (int value : {5, -3, 9})
        f.mIntSet.Add(value);
    f.mGuidSet.Add(kGuidB);
    f.mGuidSet.Add(kGuidA);

    f.mArray.SetOwnership(kFCDeleted);
    f.mArray.Add(new TestCounted(3));
    f.mArray.Add(new TestDerived(1, "derived"));
    f.mArray.Add(new TestCounted(3));
    for (qint32 value : {9, 2}) {
        auto* object = new TestCounted(value);
        f.mSet.Add(object);
        object->Release();
    }
    auto* seventy = new TestCounted(70);
    f.mMap.SetAt(7, seventy);
    seventy->Release();
    auto* grandChild = new TestGrandChild;
    grandChild->mValue = 10;
    grandChild->mExtra = "deep";
    f.mMap.SetAt(-1, grandChild);
    grandChild->Release();
    f.mGuidMap.SetOwnership(kFCDeleted);
    f.mGuidMap.SetAt(kGuidA, new TestCounted(1));
}

std::vector<std::pair<QString, qint32>> describe(const std::vector<TestCounted*>& elements) {
    std::vector<std::pair<QString, qint32>> out;
    for (const TestCounted* element : elements)
        out.emplace_back(element->GetClassInfoA()->GetClassName(), element->mValue);
    return out;
}

template <typename C> std::vector<TestCounted*> setElements(const C& set) {
    std::vector<TestCounted*> out;
    for (const auto& item : set)
        out.push_back(item.Get());
    return out;
}

template <typename C> std::vector<TestCounted*> mapElements(const C& map) {
    std::vector<TestCounted*> out;
    for (const auto& [key, object] : map)
        out.push_back(object);
    return out;
}

void expectSameFields(const TestFields& a, const TestFields& b) {
    EXPECT_EQ(a.mInt32, b.mInt32);
    EXPECT_EQ(a.mUInt32, b.mUInt32);
    EXPECT_EQ(a.mInt64, b.mInt64);
    EXPECT_EQ(a.mInt16, b.mInt16);
    EXPECT_EQ(a.mFloat, b.mFloat);
    EXPECT_EQ(a.mDouble, b.mDouble);
    EXPECT_EQ(a.mBool, b.mBool);
    EXPECT_EQ(a.mBoolFalse, b.mBoolFalse);
    EXPECT_EQ(a.mGuid, b.mGuid);
    EXPECT_EQ(a.mText, b.mText);
    EXPECT_EQ(a.mColor, b.mColor);
    EXPECT_EQ(a.mPlain, b.mPlain);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(a.mTriple[i], b.mTriple[i]) << i;
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(a.mNames[i], b.mNames[i]) << i;
        EXPECT_EQ(a.mNames[i].isNull(), b.mNames[i].isNull()) << i;
    }
    EXPECT_TRUE(a.mInts == b.mInts);
    EXPECT_TRUE(a.mGuids == b.mGuids);
    ASSERT_EQ(a.mTexts.GetCount(), b.mTexts.GetCount());
    for (int i = 0; i < a.mTexts.GetCount(); ++i) {
        EXPECT_EQ(a.mTexts.At(i), b.mTexts.At(i)) << i;
        EXPECT_EQ(a.mTexts.At(i).isNull(), b.mTexts.At(i).isNull()) << i;
    }
    EXPECT_TRUE(a.mPairs == b.mPairs);
    EXPECT_TRUE(a.mIntSet == b.mIntSet);
    EXPECT_TRUE(a.mGuidSet == b.mGuidSet);

    EXPECT_EQ(a.mArray.GetOwnership(), b.mArray.GetOwnership());
    EXPECT_EQ(describe({a.mArray.begin(), a.mArray.end()}),
              describe({b.mArray.begin(), b.mArray.end()}));
    EXPECT_EQ(a.mSet.GetOwnership(), b.mSet.GetOwnership());
    EXPECT_EQ(describe(setElements(a.mSet)), describe(setElements(b.mSet)));
    EXPECT_EQ(a.mMap.GetOwnership(), b.mMap.GetOwnership());
    EXPECT_EQ(describe(mapElements(a.mMap)), describe(mapElements(b.mMap)));
    for (int key : {7, -1})
        EXPECT_EQ(a.mMap.Contains(key), b.mMap.Contains(key)) << key;
    EXPECT_EQ(a.mGuidMap.GetOwnership(), b.mGuidMap.GetOwnership());
    EXPECT_EQ(describe(mapElements(a.mGuidMap)), describe(mapElements(b.mGuidMap)));
    EXPECT_EQ(a.mGuidMap.Contains(kGuidA), b.mGuidMap.Contains(kGuidA));
}

// What a freshly read TestFields must look like beyond equality with the original.
void expectLoadedDetails(const TestFields& loaded) {
    EXPECT_TRUE(loaded.mEmpty.isEmpty());
    EXPECT_FALSE(loaded.mEmpty.isNull());
    EXPECT_TRUE(loaded.mNull.isNull());
    EXPECT_EQ(loaded.mText.size(), 14); // the dragon is two UTF-16 units
    EXPECT_EQ(loaded.mArray.GetOwnership(), kFCDeleted);
    EXPECT_EQ(loaded.mGuidMap.GetOwnership(), kFCDeleted);
    auto* derived = FCDynamicCast<TestDerived>(loaded.mArray.At(1));
    ASSERT_NE(derived, nullptr);
    EXPECT_EQ(derived->mExtra, QString("derived"));
    auto* grandChild = FCDynamicCast<TestGrandChild>(loaded.mMap.Lookup(-1));
    ASSERT_NE(grandChild, nullptr);
    EXPECT_EQ(grandChild->mExtra, QString("deep"));
    // Loaded elements hold only the reference the container keeps.
    for (const TestCounted* element : loaded.mArray) {
        EXPECT_EQ(element->GetRetainCount(), 1);
    }
    for (const auto& elements : {setElements(loaded.mSet), mapElements(loaded.mMap)}) {
        for (const TestCounted* element : elements) {
            EXPECT_EQ(element->GetRetainCount(), 1);
        }
    }
}

} // namespace

TEST(FCArchiveTest, EveryFieldTypeSurvivesARoundTrip) {
    const int before = TestCounted::sLive;
    {
        TestFields original;
        fill(original);
        const QByteArray bytes = storeObject(&original);

        bool ok = false;
        FCObject* object = loadObject(bytes, &ok);
        EXPECT_TRUE(ok);
        auto* loaded = FCDynamicCast<TestFields>(object);
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(loaded->GetRetainCount(), 1);
        expectSameFields(original, *loaded);
        expectLoadedDetails(*loaded);
        // Storing what was read gives the same bytes: nothing was lost or reordered.
        EXPECT_EQ(storeObject(loaded), bytes);
        loaded->Release();
    }
    EXPECT_EQ(TestCounted::sLive, before);
}

TEST(FCArchiveTest, ReadingIntoAnExistingObjectReplacesEveryField) {
    const int before = TestCounted::sLive;
    {
        TestFields original;
        fill(original);
        const QByteArray bytes = storeObject(&original);

        // A target whose every field differs, strings null where the file has empty ones and
        // the other way round, containers full.
        TestFields target;
        target.mInt32 = 1;
        target.mDouble = 2.5;
        target.mBool = false;
        target.mBoolFalse = true;
        target.mEmpty = QString();
        target.mNull = "junk";
        target.mText = "old";
        target.mNames[1] = QString();
        for (int value : {100, 200, 300, 400})
            target.mInts.Add(value);
        target.mTexts.Add("stale");
        target.mIntSet.Add(1000);
        addOwned(target.mArray, new TestCounted(-100));
        auto* old = new TestCounted(-200);
        target.mSet.Add(old);
        old->Release();
        auto* oldInMap = new TestCounted(-300);
        target.mMap.SetAt(7, oldInMap);
        oldInMap->Release();
        target.Retain(); // a reader must not touch the target's own count
        EXPECT_EQ(TestCounted::sLive, before + 3 + 8);

        bool ok = false;
        FCObject* result = loadObject(bytes, &ok, &target);
        EXPECT_TRUE(ok);
        EXPECT_EQ(result, &target);
        EXPECT_EQ(target.GetRetainCount(), 2);
        expectSameFields(original, target);
        expectLoadedDetails(target);
        // The three old elements were dropped; the new ones replace them.
        EXPECT_EQ(TestCounted::sLive, before + 8 + 8);
    }
    EXPECT_EQ(TestCounted::sLive, before);
}

TEST(FCArchiveTest, ObjectsNullAndSequencesReadBackInOrder) {
    const int before = TestCounted::sLive;
    TestCounted first(1);
    TestDerived second(2, "two");
    QByteArray bytes;
    {
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        FCArchive archive(&stream, FCArchive::Store);
        EXPECT_TRUE(archive.IsStoring());
        EXPECT_FALSE(archive.IsLoading());
        EXPECT_TRUE(archive.WriteObject(&first));
        EXPECT_TRUE(archive.WriteObject(nullptr));
        EXPECT_TRUE(archive.WriteObject(&second));
        qint32 trailer = 77;
        archive.Transfer(trailer);
    }
    QDataStream stream(bytes);
    FCArchive archive(&stream, FCArchive::Load);
    EXPECT_TRUE(archive.IsLoading());

    FCObject* one = archive.ReadObject();
    ASSERT_NE(one, nullptr);
    EXPECT_EQ(one->GetClassInfoA(), TestCounted::GetStaticClassInfo());
    EXPECT_EQ(static_cast<TestCounted*>(one)->mValue, 1);

    EXPECT_EQ(archive.ReadObject(), nullptr);
    EXPECT_TRUE(archive.IsOk()); // a stored null is not a failure

    auto* two = FCDynamicCast<TestDerived>(archive.ReadObject());
    ASSERT_NE(two, nullptr);
    EXPECT_EQ(two->mValue, 2);
    EXPECT_EQ(two->mExtra, QString("two"));
    EXPECT_EQ(two->GetRetainCount(), 1);

    qint32 trailer = 0;
    archive.Transfer(trailer);
    EXPECT_EQ(trailer, 77);
    EXPECT_TRUE(archive.IsOk());
    EXPECT_EQ(archive.BytesRemaining(), 0);

    one->Release();
    two->Release();
    EXPECT_EQ(TestCounted::sLive, before + 2);
}

TEST(FCArchiveTest, ReadingIntoAnObjectOfAnotherClassFailsAndLeavesItAlone) {
    const int before = TestCounted::sLive;
    TestDerived stored(5, "five");
    const QByteArray bytes = storeObject(&stored);
    for (FCObject* into :
         std::initializer_list<FCObject*>{new TestCounted(9), new TestGrandChild, new TestText}) {
        SCOPED_TRACE(into->GetClassInfoA()->GetClassName());
        bool ok = true;
        EXPECT_EQ(loadObject(bytes, &ok, into), nullptr);
        EXPECT_FALSE(ok);
        EXPECT_EQ(into->GetRetainCount(), 1);
        if (auto* counted = FCDynamicCast<TestCounted>(into)) {
            EXPECT_NE(counted->mValue, 5);
        }
        into->Release();
    }
    EXPECT_EQ(TestCounted::sLive, before + 1);
}

TEST(FCArchiveTest, StoredOwnershipModeIsRestored) {
    struct Kind {
        const char* label;
        FCObject* (*make)(int mode, int elements);
        int (*modeOf)(const FCObject*);
    };
    const Kind kinds[] = {
        {"array", makeHolder<TestObjList>, modeOfHolder<TestObjList>},
        {"set", makeHolder<TestObjSet>, modeOfHolder<TestObjSet>},
        {"map", makeHolder<TestObjMap>, modeOfHolder<TestObjMap>},
    };
    // The holders construct their containers in mode 2, so modes 0 and 1 can only come from
    // the file. A borrowing container is stored empty.
    for (const Kind& kind : kinds) {
        for (int mode : {kFCBorrowed, kFCDeleted, kFCRetained}) {
            SCOPED_TRACE(testing::Message() << kind.label << " mode " << mode);
            const int elements = mode == kFCBorrowed ? 0 : 2;
            const int before = TestCounted::sLive;
            FCObject* original = kind.make(mode, elements);
            bool ok = false;
            FCObject* loaded = loadObject(storeObject(original), &ok);
            original->Release();
            ASSERT_TRUE(ok);
            ASSERT_NE(loaded, nullptr);
            EXPECT_EQ(kind.modeOf(loaded), mode);
            EXPECT_EQ(TestCounted::sLive, before + elements);
            loaded->Release();
            EXPECT_EQ(TestCounted::sLive, before);
        }
    }
}

TEST(FCArchiveTest, BorrowingContainersWithElementsAreRefused) {
    const int before = TestCounted::sLive;
    TestCounted a(1);
    TestCounted b(2);
    {
        TestObjList list;
        list.mItems.SetOwnership(kFCBorrowed);
        list.mItems.Add(&a);
        list.mItems.Add(&b);
        TestObjSet set;
        set.mItems.SetOwnership(kFCBorrowed);
        set.mItems.Add(&a);
        TestObjMap map;
        map.mItems.SetOwnership(kFCBorrowed);
        map.mItems.SetAt(3, &b);
        for (const FCObject* holder : std::initializer_list<const FCObject*>{&list, &set, &map}) {
            SCOPED_TRACE(holder->GetClassInfoA()->GetClassName());
            bool ok = true;
            EXPECT_EQ(loadObject(storeObject(holder), &ok), nullptr);
            EXPECT_FALSE(ok);
            EXPECT_EQ(TestCounted::sLive, before + 2);
        }
    }
    EXPECT_EQ(a.GetRetainCount(), 1);
    EXPECT_EQ(b.GetRetainCount(), 1);
}

TEST(FCArchiveTest, HeaderRoundTripAndMagic) {
    QByteArray bytes;
    {
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        FCArchive archive(&stream, FCArchive::Store);
        archive.mSignature = 0x08080808;
        archive.mVersion = 0x10001;
        EXPECT_TRUE(archive.WriteHeader());
    }
    {
        QDataStream stream(bytes);
        FCArchive archive(&stream, FCArchive::Load);
        EXPECT_TRUE(archive.ReadHeader());
        EXPECT_EQ(archive.mSignature, 0x08080808u);
        EXPECT_EQ(archive.mVersion, 0x10001u);
    }
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        QByteArray damaged = bytes;
        damaged[i] = char(damaged[i] ^ 0x20);
        QDataStream stream(damaged);
        FCArchive archive(&stream, FCArchive::Load);
        EXPECT_FALSE(archive.ReadHeader());
        EXPECT_FALSE(archive.IsOk());
    }
}

TEST(FCArchiveTest, RawBytesMoveUnchangedAndShortReadsFail) {
    const char payload[] = {'a', '\0', char(0xFF), 'z'};
    QByteArray bytes;
    {
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        FCArchive archive(&stream, FCArchive::Store);
        EXPECT_TRUE(archive.Write(payload, 4));
    }
    EXPECT_EQ(bytes, QByteArray(payload, 4));

    QDataStream stream(bytes);
    FCArchive archive(&stream, FCArchive::Load);
    char first[3] = {};
    EXPECT_TRUE(archive.Read(first, 3));
    EXPECT_EQ(QByteArray(first, 3), QByteArray(payload, 3));
    char rest[2] = {};
    EXPECT_FALSE(archive.Read(rest, 2));
    EXPECT_FALSE(archive.IsOk());
    // Once failed, every later read yields zero.
    qint32 value = 5;
    archive.Transfer(value);
    EXPECT_EQ(value, 0);
}
