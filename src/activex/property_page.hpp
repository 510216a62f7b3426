// IPropertyPage2: one of the eight pages in a container's property frame.
#pragma once

#include "activex/aggregated_object.hpp"
#include "activex/com.hpp"
#include "core/property_pages.hpp"

namespace quillspeech::activex {

// Makes a page for a class factory. CLASS_E_CLASSNOTAVAILABLE when the class is none of theirs.
HRESULT Make_Property_Page(REFCLSID page, IUnknown* outer, REFIID iid, void** object);

// It reads and writes the first of the objects that it is given, by the names of their members.
class PropertyPageObject final : public AggregatedObject {
 public:
  PropertyPageObject(IUnknown* outer, const PropertyPage& page);
  ~PropertyPageObject() override;

 private:
  class Page final : public PartOf<IPropertyPage2> {
   public:
    Page(IUnknown& whole, const PropertyPage& page);
    ~Page() { Close(); }

    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override;
    // E_UNEXPECTED before the page has an object to show.
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT place, BOOL modal) override;
    HRESULT STDMETHODCALLTYPE Deactivate() override;
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* information) override;
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override;
    // SW_SHOW, SW_SHOWNORMAL or SW_HIDE.
    HRESULT STDMETHODCALLTYPE Show(UINT command) override;
    HRESULT STDMETHODCALLTYPE Move(LPCRECT place) override;
    HRESULT STDMETHODCALLTYPE IsPageDirty() override { return form_.Is_Changed() ? S_OK : S_FALSE; }
    HRESULT STDMETHODCALLTYPE Apply() override;
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR folder) override;
    // S_FALSE: the key is the frame's.
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;
    HRESULT STDMETHODCALLTYPE EditProperty(DISPID property) override;

   private:
    HRESULT With_Members(void (PageForm::*procedure)(MemberSource&));
    void Tell_Status();
    std::intptr_t Window() const;
    void Close();

    PageForm form_;
    ComPtr<IPropertyPageSite> site_;
    ComPtr<IDispatch> object_;
    bool is_active_ = false;
  };

  IUnknown* Interface_Of(REFIID iid) override;

  Page page_;
};

}  // namespace quillspeech::activex
