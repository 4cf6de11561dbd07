#pragma once

#include <memory>
#include <string>

class CObject;

// Run-time class record: a name, the base's record and a factory for classes that can be
// created by name (pages and windows are made that way).
struct SYRuntimeClass {
    const char* className;
    const SYRuntimeClass* baseClass;
    CObject* (*create)();

    std::unique_ptr<CObject> CreateObject() const;
    bool IsDerivedFrom(const SYRuntimeClass* base) const;

    static const SYRuntimeClass* FromName(const std::string& name);
    static std::unique_ptr<CObject> CreateObject(const std::string& name);
};

// Registers a run-time class by name at static-initialisation time.
struct SYRuntimeClassRegistrar {
    explicit SYRuntimeClassRegistrar(const SYRuntimeClass* rc);
};

// The framework's root object.
class CObject {
public:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
    virtual ~CObject() = default;

    virtual const SYRuntimeClass* GetRuntimeClass() const;
    bool IsKindOf(const SYRuntimeClass* rc) const;

    static const SYRuntimeClass classCObject;
};

#define SY_RUNTIME_CLASS(cls) (&cls::class##cls)

#define SY_DECLARE_DYNAMIC(cls)                                                                    \
public:                                                                                            \
    static const SYRuntimeClass class##cls;                                                        \
    const SYRuntimeClass* GetRuntimeClass() const override;

#define SY_DECLARE_DYNCREATE(cls)                                                                  \
    SY_DECLARE_DYNAMIC(cls)                                                                        \
    static CObject* CreateObject();

#define SY_IMPLEMENT_DYNAMIC(cls, base)                                                            \
    const SYRuntimeClass cls::class##cls = {#cls, SY_RUNTIME_CLASS(base), nullptr};                \
    const SYRuntimeClass* cls::GetRuntimeClass() const {                                           \
        return SY_RUNTIME_CLASS(cls);                                                              \
    }                                                                                              \
    static const SYRuntimeClassRegistrar syRegistrar##cls(SY_RUNTIME_CLASS(cls));

#define SY_IMPLEMENT_DYNCREATE(cls, base)                                                          \
    CObject* cls::CreateObject() {                                                                 \
        return new cls;                                                                            \
    }                                                                                              \
    const SYRuntimeClass cls::class##cls = {#cls, SY_RUNTIME_CLASS(base), &cls::CreateObject};     \
    const SYRuntimeClass* cls::GetRuntimeClass() const {                                           \
        return SY_RUNTIME_CLASS(cls);                                                              \
    }                                                                                              \
    static const SYRuntimeClassRegistrar syRegistrar##cls(SY_RUNTIME_CLASS(cls));
