#pragma once

class FCObject;

// One entry of the class registry: what a file needs to recreate an object by class name.
// Entries link themselves into a list when constructed; the list head is constant-initialised,
// so the registry works whatever order the entries are built in.
class FCClassInfo {
public:
    using Factory = FCObject* (*)();

    FCClassInfo(const char* className, const char* baseName, const char* secondBaseName,
                int objectSize, Factory factory);
    FCClassInfo(const FCClassInfo&) = delete;
    FCClassInfo& operator=(const FCClassInfo&) = delete;

    const char* GetClassName() const { return mClassName; }
    const char* GetBaseName() const { return mBaseName; }
    const char* GetSecondBaseName() const { return mSecondBaseName; }
    int GetObjectSize() const { return mObjectSize; }

    // A new object with a reference count of one, or null for an abstract class.
    FCObject* CreateObject() const;

    // True if this class is `other` or derives from it through either base.
    bool IsDerivedFrom(const FCClassInfo* other) const;

    static const FCClassInfo* Find(const char* className);
    static int GetRegisteredCount();

private:
    const char* mClassName;
    const char* mBaseName;
    const char* mSecondBaseName;
    int mObjectSize;
    Factory mFactory;
    const FCClassInfo* mNext;
};

// Returns a new object of the named class (count one), or null if no such class is registered.
FCObject* FCCreateDynamicObject(const char* className);

// Declares the registry members of a persistent class; put inside the class body.
#define FC_DECLARE_CLASS(ClassName)                                                                \
public:                                                                                            \
    static FCClassInfo mClass##ClassName;                                                          \
    static FCClassInfo* GetStaticClassInfo() {                                                     \
        return &mClass##ClassName;                                                                 \
    }                                                                                              \
    FCClassInfo* GetClassInfoA() const override {                                                  \
        return &mClass##ClassName;                                                                 \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    static FCObject* CreateInstance##ClassName();                                                  \
                                                                                                   \
public:

// Defines the registry entry of a class that can be created by name.
#define FC_IMPLEMENT_CLASS(ClassName, BaseName, SecondBase)                                        \
    FCObject* ClassName::CreateInstance##ClassName() {                                             \
        return new ClassName;                                                                      \
    }                                                                                              \
    FCClassInfo ClassName::mClass##ClassName(#ClassName, BaseName, SecondBase,                     \
                                             int(sizeof(ClassName)),                               \
                                             &ClassName::CreateInstance##ClassName);

// Defines the registry entry of an abstract class (no factory).
#define FC_IMPLEMENT_ABSTRACT_CLASS(ClassName, BaseName, SecondBase)                               \
    FCObject* ClassName::CreateInstance##ClassName() {                                             \
        return nullptr;                                                                            \
    }                                                                                              \
    FCClassInfo ClassName::mClass##ClassName(#ClassName, BaseName, SecondBase,                     \
                                             int(sizeof(ClassName)), nullptr);
