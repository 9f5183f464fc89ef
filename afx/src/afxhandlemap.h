// HyAfx private: the handle map behind every FromHandle (windows, menus, GDI
// objects, device contexts).
//
// Thread policy: a map belongs to a thread. Its permanent entries (objects
// that own their handle: Attach, Create*) and its temporary wrappers (made by
// FromHandle for any other handle) are seen only by the thread that made
// them, so an object found on one thread is never handed to another, and a
// temporary wrapper is freed by its own thread: at idle time
// (AfxDeleteTempMaps) or when the thread ends. An object must be detached on
// the thread that attached it.
#pragma once
#include <windows.h>
#include <unordered_map>
#include <vector>

template <class THandle, class TObject>
class CHandleMap
{
public:
    // Lets a temporary wrapper go of its handle (without destroying it) and
    // deletes the wrapper.
    using PFN_FREE = void (*)(TObject*);

    explicit CHandleMap(PFN_FREE pfnFree) : m_pfnFree(pfnFree), m_slot(::FlsAlloc(&FreeTables)) {}

    TObject* LookupPermanent(THandle h) const { return Find(&Tables::permanent, h); }
    TObject* LookupTemporary(THandle h) const { return Find(&Tables::temporary, h); }

    // A permanent object retires a temporary wrapper of the same handle.
    void SetPermanent(THandle h, TObject* p)
    {
        Tables& t = ThisThread();
        Retire(t, h);
        t.permanent[h] = p;
    }
    // Removes the entry only when it is p's (the handle may have been
    // attached again since).
    void RemovePermanent(THandle h, TObject* p)
    {
        Tables* t = ThisThreadIfAny();
        if (t == nullptr) return;  // the thread's maps are gone (thread or process end)
        auto it = t->permanent.find(h);
        if (it != t->permanent.end() && it->second == p) t->permanent.erase(it);
    }
    // Adds a temporary wrapper; one already there is retired, not freed,
    // since it may still be in use until idle time.
    void SetTemporary(THandle h, TObject* p)
    {
        Tables& t = ThisThread();
        Retire(t, h);
        t.temporary.emplace(h, p);
    }
    // The permanent object, else the temporary wrapper, else a new wrapper
    // made by pfnNew.
    template <class FNew>
    TObject* FromHandle(THandle h, FNew pfnNew)
    {
        if (h == nullptr) return nullptr;
        if (TObject* p = LookupPermanent(h)) return p;
        if (TObject* p = LookupTemporary(h)) return p;
        TObject* p = pfnNew(h);
        SetTemporary(h, p);
        return p;
    }
    // A copy of this thread's permanent entries, safe to walk while the
    // objects attach or detach.
    std::vector<std::pair<THandle, TObject*>> PermanentEntries() const
    {
        const Tables* t = ThisThreadIfAny();
        if (t == nullptr) return {};
        return {t->permanent.begin(), t->permanent.end()};
    }
    // Frees this thread's temporary wrappers.
    void DeleteTemp()
    {
        if (Tables* t = ThisThreadIfAny()) t->FreeTemporary();
    }

private:
    struct Tables
    {
        PFN_FREE pfnFree;
        std::unordered_map<THandle, TObject*> permanent;
        std::unordered_map<THandle, TObject*> temporary;
        std::vector<TObject*> retired;

        ~Tables() { FreeTemporary(); }
        void FreeTemporary()
        {
            // Swapped out first: freeing a wrapper may look up the map again.
            std::unordered_map<THandle, TObject*> doomed;
            std::vector<TObject*> doomedRetired;
            doomed.swap(temporary);
            doomedRetired.swap(retired);
            for (auto& e : doomed) pfnFree(e.second);
            for (TObject* p : doomedRetired) pfnFree(p);
        }
    };

    static void WINAPI FreeTables(void* pv) { delete static_cast<Tables*>(pv); }

    Tables* ThisThreadIfAny() const { return static_cast<Tables*>(::FlsGetValue(m_slot)); }
    Tables& ThisThread()
    {
        Tables* t = ThisThreadIfAny();
        if (t == nullptr)
        {
            t = new Tables{m_pfnFree, {}, {}, {}};
            ::FlsSetValue(m_slot, t);
        }
        return *t;
    }
    TObject* Find(std::unordered_map<THandle, TObject*> Tables::*which, THandle h) const
    {
        const Tables* t = ThisThreadIfAny();
        if (t == nullptr || h == nullptr) return nullptr;
        auto it = (t->*which).find(h);
        return it == (t->*which).end() ? nullptr : it->second;
    }
    static void Retire(Tables& t, THandle h)
    {
        auto it = t.temporary.find(h);
        if (it == t.temporary.end()) return;
        t.retired.push_back(it->second);
        t.temporary.erase(it);
    }

    PFN_FREE m_pfnFree;
    DWORD m_slot;
};

// The map of one kind of handle: made on first use and deliberately never
// destroyed, since objects may still detach from it while the process shuts
// down (a static object outliving its thread's tables only lets go of its
// handle).
template <class THandle, class TObject>
CHandleMap<THandle, TObject>& AfxHandleMapOf(typename CHandleMap<THandle, TObject>::PFN_FREE pfnFree)
{
    static auto* p = new CHandleMap<THandle, TObject>(pfnFree);
    return *p;
}

// The map of a wrapper whose handle is the member `handle`: a temporary
// wrapper lets go of its handle before it is deleted, so it never destroys
// the object it stood for.
template <class THandle, class TObject, THandle TObject::*handle>
CHandleMap<THandle, TObject>& AfxWrapperMapOf()
{
    return AfxHandleMapOf<THandle, TObject>([](TObject* p) {
        p->*handle = nullptr;
        delete p;
    });
}
