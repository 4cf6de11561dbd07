#include "outside/framework/CObject.h"

#include <map>

namespace {

std::map<std::string, const SYRuntimeClass*>& registry() {
    static std::map<std::string, const SYRuntimeClass*> classes;
    return classes;
}

} // namespace

const SYRuntimeClass CObject::classCObject = {"CObject", nullptr, nullptr};

SYRuntimeClassRegistrar::SYRuntimeClassRegistrar(const SYRuntimeClass* rc) {
    registry()[rc->className] = rc;
}

std::unique_ptr<CObject> SYRuntimeClass::CreateObject() const {
    if (create == nullptr)
        return nullptr;
    return std::unique_ptr<CObject>(create());
}

bool SYRuntimeClass::IsDerivedFrom(const SYRuntimeClass* base) const {
    for (const SYRuntimeClass* rc = this; rc != nullptr; rc = rc->baseClass) {
        if (rc == base)
            return true;
    }
    return false;
}

const SYRuntimeClass* SYRuntimeClass::FromName(const std::string& name) {
    auto it = registry().find(name);
    return it == registry().end() ? nullptr : it->second;
}

std::unique_ptr<CObject> SYRuntimeClass::CreateObject(const std::string& name) {
    const SYRuntimeClass* rc = FromName(name);
    return rc == nullptr ? nullptr : rc->CreateObject();
}

const SYRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

bool CObject::IsKindOf(const SYRuntimeClass* rc) const {
    return GetRuntimeClass()->IsDerivedFrom(rc);
}
