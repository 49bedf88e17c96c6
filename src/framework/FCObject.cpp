#include "FCObject.h"

FCClassInfo FCObject::mClassFCObject("FCObject", nullptr, nullptr, int(sizeof(FCObject)), nullptr);
