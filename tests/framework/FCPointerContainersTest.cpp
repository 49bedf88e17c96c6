#include "FrameworkTestClasses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

struct ModeCase {
    int mode;
    int countInside;     // count of an element that the test also holds a reference to
    bool removalDeletes; // whether removal ends the element's life
};

const ModeCase kModes[] = {
    {kFCBorrowed, 1, false},
    {kFCDeleted, 1, true},
    {kFCRetained, 2, false},
};

enum class Removal { One, All, Destroy };

const char* removalName(Removal how) {
    switch (how) {
    case Removal::One:
        return "remove one";
    case Removal::All:
        return "RemoveAll";
    case Removal::Destroy:
        return "destruction";
    }
    return "";
}

// One adapter per way of putting an element into a pointer container and taking it out.
struct ArrayAdd {
    using Container = FCPointerArray<TestCounted>;
    static void insert(Container& c, TestCounted* o) { c.Add(o); }
    static void removeOne(Container& c, TestCounted* o) { EXPECT_TRUE(c.Remove(o)); }
    static std::vector<TestCounted*> elements(const Container& c) { return {c.begin(), c.end()}; }
};

struct ArrayInsertAt {
    using Container = FCPointerArray<TestCounted>;
    static void insert(Container& c, TestCounted* o) { c.InsertAt(c.GetCount(), o); }
    static void removeOne(Container& c, TestCounted* o) {
        const int index = c.Find(o);
        ASSERT_GE(index, 0);
        c.RemoveAt(index);
    }
    static std::vector<TestCounted*> elements(const Container& c) { return {c.begin(), c.end()}; }
};

struct SetAdd {
    using Container = FCPointerSet<TestCounted>;
    static void insert(Container& c, TestCounted* o) { EXPECT_TRUE(c.Add(o)); }
    static void removeOne(Container& c, TestCounted* o) {
        const TestCounted key(o->mValue); // look-ups go by a temporary carrying the key
        EXPECT_TRUE(c.Remove(key));
    }
    static std::vector<TestCounted*> elements(const Container& c) {
        std::vector<TestCounted*> out;
        for (const FCPointer<TestCounted>& item : c)
            out.push_back(item.Get());
        return out;
    }
};

struct MapSetAt {
    using Container = FCPointerMap<int, TestCounted>;
    static void insert(Container& c, TestCounted* o) { c.SetAt(o->mValue, o); }
    static void removeOne(Container& c, TestCounted* o) { EXPECT_TRUE(c.RemoveKey(o->mValue)); }
    static std::vector<TestCounted*> elements(const Container& c) {
        std::vector<TestCounted*> out;
        for (const auto& [key, object] : c)
            out.push_back(object);
        return out;
    }
};

struct GuidMapSetAt {
    using Container = FCPointerMap<QUuid, TestCounted>;
    static QUuid key(const TestCounted* o) {
        return QUuid(uint(o->mValue), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    }
    static void insert(Container& c, TestCounted* o) { c.SetAt(key(o), o); }
    static void removeOne(Container& c, TestCounted* o) { EXPECT_TRUE(c.RemoveKey(key(o))); }
    static std::vector<TestCounted*> elements(const Container& c) {
        std::vector<TestCounted*> out;
        for (const auto& [key, object] : c)
            out.push_back(object);
        return out;
    }
};

std::vector<qint32> valuesOf(const std::vector<TestCounted*>& elements) {
    std::vector<qint32> out;
    for (const TestCounted* element : elements)
        out.push_back(element->mValue);
    return out;
}

template <typename Ops> class FCPointerContainerTest : public ::testing::Test {};
using AllAdapters = ::testing::Types<ArrayAdd, ArrayInsertAt, SetAdd, MapSetAt, GuidMapSetAt>;
TYPED_TEST_SUITE(FCPointerContainerTest, AllAdapters);

} // namespace

TYPED_TEST(FCPointerContainerTest, InsertAndEveryRemovalFollowTheOwnershipMode) {
    using Ops = TypeParam;
    for (const ModeCase& m : kModes) {
        for (Removal how : {Removal::One, Removal::All, Removal::Destroy}) {
            SCOPED_TRACE(testing::Message() << "mode " << m.mode << ", " << removalName(how));
            const int before = TestCounted::sLive;
            auto container = std::make_unique<typename Ops::Container>();
            EXPECT_EQ(container->GetOwnership(), kFCBorrowed); // every container starts borrowing
            container->SetOwnership(m.mode);
            EXPECT_EQ(container->GetOwnership(), m.mode);

            auto* stays = new TestCounted(1);
            auto* goes = new TestCounted(2);
            Ops::insert(*container, stays);
            Ops::insert(*container, goes);
            EXPECT_EQ(container->GetCount(), 2);
            EXPECT_EQ(stays->GetRetainCount(), m.countInside);
            EXPECT_EQ(goes->GetRetainCount(), m.countInside);

            switch (how) {
            case Removal::One:
                Ops::removeOne(*container, goes);
                EXPECT_EQ(container->GetCount(), 1);
                EXPECT_EQ(Ops::elements(*container), std::vector<TestCounted*>{stays});
                EXPECT_EQ(stays->GetRetainCount(), m.countInside); // the other one is untouched
                break;
            case Removal::All:
                container->RemoveAll();
                EXPECT_EQ(container->GetCount(), 0);
                EXPECT_TRUE(container->IsEmpty());
                break;
            case Removal::Destroy:
                container.reset();
                break;
            }

            const int dropped = how == Removal::One ? 1 : 2;
            if (m.removalDeletes) {
                EXPECT_EQ(TestCounted::sLive, before + 2 - dropped);
            } else {
                EXPECT_EQ(TestCounted::sLive, before + 2);
                EXPECT_EQ(goes->GetRetainCount(), 1);
                if (how != Removal::One) {
                    EXPECT_EQ(stays->GetRetainCount(), 1);
                }
            }

            container.reset();
            if (!m.removalDeletes) {
                EXPECT_EQ(stays->GetRetainCount(), 1);
                stays->Release();
                goes->Release();
            }
            EXPECT_EQ(TestCounted::sLive, before);
        }
    }
}

TYPED_TEST(FCPointerContainerTest, CloneFromMakesIndependentDeepCopiesInOwningModes) {
    using Ops = TypeParam;
    for (const ModeCase& m : kModes) {
        SCOPED_TRACE(testing::Message() << "mode " << m.mode);
        const int before = TestCounted::sLive;
        auto source = std::make_unique<typename Ops::Container>();
        source->SetOwnership(m.mode);
        std::vector<TestCounted*> made = {new TestCounted(1), new TestDerived(2, "second"),
                                          new TestCounted(3)};
        for (TestCounted* object : made) {
            Ops::insert(*source, object);
            if (m.mode == kFCRetained)
                object->Release(); // the loader pattern: the container keeps the only reference
        }

        // The copy starts with an element of its own that CloneFrom must drop.
        auto copy = std::make_unique<typename Ops::Container>();
        copy->SetOwnership(kFCRetained);
        auto* old = new TestCounted(99);
        Ops::insert(*copy, old);
        old->Release();

        copy->CloneFrom(*source);
        const bool owning = m.mode != kFCBorrowed;
        EXPECT_EQ(copy->GetOwnership(), m.mode);
        EXPECT_EQ(TestCounted::sLive, before + 3 + (owning ? 3 : 0)); // old one deleted
        const std::vector<TestCounted*> copied = Ops::elements(*copy);
        EXPECT_EQ(valuesOf(copied), (std::vector<qint32>{1, 2, 3}));
        ASSERT_EQ(copied.size(), 3u);
        for (TestCounted* element : copied) {
            const bool shared = std::find(made.begin(), made.end(), element) != made.end();
            EXPECT_EQ(shared, !owning);
            if (owning) {
                EXPECT_EQ(element->GetRetainCount(), 1);
            }
        }
        // Clones keep the element's own class and fields.
        auto* second = FCDynamicCast<TestDerived>(copied[1]);
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(second->mExtra, QString("second"));

        source.reset();
        if (owning) {
            EXPECT_EQ(TestCounted::sLive, before + 3);
            EXPECT_EQ(valuesOf(Ops::elements(*copy)), (std::vector<qint32>{1, 2, 3}));
        }
        copy.reset();
        if (!owning) {
            for (TestCounted* object : made)
                object->Release();
        }
        EXPECT_EQ(TestCounted::sLive, before);
    }
}

TEST(FCPointerSetTest, AnEqualElementIsRejectedAndNotRetained) {
    for (const ModeCase& m : kModes) {
        SCOPED_TRACE(testing::Message() << "mode " << m.mode);
        const int before = TestCounted::sLive;
        {
            FCPointerSet<TestCounted> set;
            set.SetOwnership(m.mode);
            auto* first = new TestCounted(5);
            auto* other = new TestCounted(7);
            auto* equal = new TestCounted(5);
            EXPECT_TRUE(set.Add(first));
            EXPECT_TRUE(set.Add(other));

            EXPECT_FALSE(set.Add(equal));
            EXPECT_EQ(set.GetCount(), 2);
            EXPECT_EQ(equal->GetRetainCount(), 1);
            EXPECT_EQ(first->GetRetainCount(), m.countInside);
            EXPECT_EQ(set.Find(TestCounted(5)), first);
            EXPECT_FALSE(set.Add(first)); // the same object again is equal too
            EXPECT_EQ(first->GetRetainCount(), m.countInside);

            equal->Release();
            EXPECT_EQ(TestCounted::sLive, before + 2);
            set.RemoveAll();
            if (m.mode != kFCDeleted) {
                first->Release();
                other->Release();
            }
        }
        EXPECT_EQ(TestCounted::sLive, before);
    }
}

TEST(FCPointerSetTest, OrderAndLookupGoByTheObjectsNotTheirAddresses) {
    FCPointerSet<TestCounted> set;
    set.SetOwnership(kFCDeleted);
    // Allocation order tends to follow address order, so insert the largest value first.
    for (qint32 value : {30, 10, 20, -5})
        set.Add(new TestCounted(value));
    std::vector<qint32> order;
    for (const FCPointer<TestCounted>& item : set)
        order.push_back(item->mValue);
    EXPECT_EQ(order, (std::vector<qint32>{-5, 10, 20, 30}));

    const TestCounted key(20);
    TestCounted* found = set.Find(key);
    ASSERT_NE(found, nullptr);
    EXPECT_NE(found, &key);
    EXPECT_EQ(found->mValue, 20);
    EXPECT_TRUE(set.Contains(TestCounted(-5)));
    EXPECT_FALSE(set.Contains(TestCounted(11)));
    EXPECT_FALSE(set.Remove(TestCounted(11)));
    EXPECT_EQ(set.GetCount(), 4);

    EXPECT_TRUE(FCPointer<TestCounted>(set.Find(TestCounted(10))) <
                FCPointer<TestCounted>(set.Find(TestCounted(30))));
    EXPECT_FALSE(FCPointer<TestCounted>(set.Find(TestCounted(30))) <
                 FCPointer<TestCounted>(set.Find(TestCounted(10))));
}

// Another object under an existing key replaces the old one, which goes by the mode; the same
// object again changes nothing.
TEST(FCPointerMapTest, SetAtOnAnExistingKeyDropsTheOldObjectByMode) {
    for (const ModeCase& m : kModes) {
        SCOPED_TRACE(testing::Message() << "mode " << m.mode);
        const int before = TestCounted::sLive;
        {
            FCPointerMap<int, TestCounted> map;
            map.SetOwnership(m.mode);
            auto* old = new TestCounted(1);
            auto* replacement = new TestCounted(2);
            map.SetAt(4, old);
            map.SetAt(4, replacement);
            EXPECT_EQ(map.GetCount(), 1);
            EXPECT_EQ(map.Lookup(4), replacement);
            EXPECT_EQ(replacement->GetRetainCount(), m.countInside);
            if (m.removalDeletes) {
                EXPECT_EQ(TestCounted::sLive, before + 1);
            } else {
                EXPECT_EQ(TestCounted::sLive, before + 2);
                EXPECT_EQ(old->GetRetainCount(), 1);
                old->Release();
            }

            const int live = TestCounted::sLive;
            auto* same = new TestCounted(8);
            map.SetAt(1, same);
            map.SetAt(1, same);
            EXPECT_EQ(TestCounted::sLive, live + 1);
            ASSERT_EQ(map.Lookup(1), same);
            EXPECT_EQ(same->GetRetainCount(), m.countInside);
            EXPECT_EQ(map.Lookup(1)->mValue, 8);
            if (m.mode == kFCBorrowed)
                map.RemoveAll();
            if (m.mode != kFCDeleted) {
                replacement->Release();
                same->Release();
            }
        }
        EXPECT_EQ(TestCounted::sLive, before);
    }
}

TEST(FCPointerMapTest, LookupAndKeyOrder) {
    FCPointerMap<int, TestCounted> map;
    map.SetOwnership(kFCDeleted);
    for (int key : {7, -3, 12})
        map.SetAt(key, new TestCounted(key * 10));
    EXPECT_EQ(map.GetCount(), 3);
    ASSERT_NE(map.Lookup(-3), nullptr);
    EXPECT_EQ(map.Lookup(-3)->mValue, -30);
    EXPECT_EQ(map.Lookup(5), nullptr);
    EXPECT_TRUE(map.Contains(12));
    EXPECT_FALSE(map.Contains(0));
    EXPECT_FALSE(map.RemoveKey(0));
    std::vector<int> keys;
    for (const auto& [key, object] : map)
        keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<int>{-3, 7, 12}));
}

TEST(FCPointerArrayTest, PositionsMovesAndOutOfRangeAccess) {
    const int before = TestCounted::sLive;
    {
        FCPointerArray<TestCounted> array;
        array.SetOwnership(kFCRetained);
        auto* a = new TestCounted(1);
        auto* b = new TestCounted(2);
        auto* c = new TestCounted(3);
        EXPECT_EQ(array.Add(a), 0);
        EXPECT_EQ(array.Add(c), 1);
        array.InsertAt(1, b);
        for (TestCounted* object : {a, b, c})
            object->Release();
        EXPECT_EQ(valuesOf({array.begin(), array.end()}), (std::vector<qint32>{1, 2, 3}));

        array.Move(0, 2);
        EXPECT_EQ(valuesOf({array.begin(), array.end()}), (std::vector<qint32>{2, 3, 1}));
        for (TestCounted* object : array) {
            EXPECT_EQ(object->GetRetainCount(), 1);
        }
        EXPECT_EQ(array.Find(a), 2);
        EXPECT_EQ(array.GetLast(), a);
        EXPECT_EQ(array.At(0), b);
        EXPECT_EQ(array.At(3), nullptr);
        EXPECT_EQ(array.At(-1), nullptr);
        TestCounted stranger(0);
        EXPECT_EQ(array.Find(&stranger), -1);
        EXPECT_FALSE(array.Remove(&stranger));
        EXPECT_EQ(array.GetCount(), 3);
    }
    EXPECT_EQ(TestCounted::sLive, before);
}
