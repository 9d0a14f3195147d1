// What every COM object of the program has of IUnknown: it answers for its interface, counts
// its references and ends with the last of them.
#pragma once

#include "base/win.h"

#include <unknwn.h>

// The interfaces of COM have no virtual destructor, but nobody deletes by them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Ids are the interfaces that it is asked for, but for IUnknown itself.
template <class Interface, const IID&... Ids>
class ComObject : public Interface {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) final {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (!IsEqualIID(id, IID_IUnknown) && !(... || IsEqualIID(id, Ids))) return E_NOINTERFACE;
        *out = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() final { return static_cast<ULONG>(InterlockedIncrement(&m_References)); }
    ULONG STDMETHODCALLTYPE Release() final {
        const LONG left = InterlockedDecrement(&m_References);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

protected:
    virtual ~ComObject() = default;

private:
    LONG m_References = 1; // its maker's
};

#pragma GCC diagnostic pop
