#pragma once

// Orders pointers by the objects they point to, for sorted pointer containers.
template <typename T> class FCPointer {
public:
    FCPointer(T* object = nullptr) : mObject(object) {}
    T* Get() const { return mObject; }
    T* operator->() const { return mObject; }
    T& operator*() const { return *mObject; }
    bool operator<(const FCPointer& other) const { return *mObject < *other.mObject; }

private:
    T* mObject;
};
