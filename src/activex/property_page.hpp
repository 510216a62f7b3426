// IPropertyPage2: one of the eight pages in a container's property frame.
#pragma once

#include "activex/aggregated_object.hpp"
#include "activex/com.hpp"
#include "activex/module.hpp"
#include "activex/page_dispatch.hpp"
#include "activex/support_error_info.hpp"
#include "core/property_pages.hpp"

namespace quillspeech::activex {

// Makes a page for a class factory. CLASS_E_CLASSNOTAVAILABLE when the class is none of theirs.
HRESULT Make_Property_Page(REFCLSID page, IUnknown* outer, REFIID iid, void** object);

// It reads and writes the first of the objects that it is given, by the names of their members. A
// failure of a member goes out with an error object; any other failure leaves none.
class PropertyPageObject final : public AggregatedObject {
 public:
  PropertyPageObject(IUnknown* outer, const PropertyPage& page);

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
    // The texts that an active page shows are the new object's then, if all could be read.
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override;
    // SW_SHOW, SW_SHOWNORMAL or SW_HIDE.
    HRESULT STDMETHODCALLTYPE Show(UINT command) override;
    HRESULT STDMETHODCALLTYPE Move(LPCRECT place) override;
    HRESULT STDMETHODCALLTYPE IsPageDirty() override { return form_.Is_Changed() ? S_OK : S_FALSE; }
    // Sets no member unless the texts were read from the object, or typed over what was. A page
    // that was not shown since it has the object has nothing to set; otherwise E_UNEXPECTED.
    HRESULT STDMETHODCALLTYPE Apply() override;
    // E_NOTIMPL on a page without help.
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR folder) override;
    // S_FALSE: the key is the frame's.
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;
    // The box of the member with that id has the focus, or gets it when the page is activated.
    HRESULT STDMETHODCALLTYPE EditProperty(DISPID property) override;

   private:
    HRESULT Read();
    HRESULT With_Members(void (PageForm::*procedure)(MemberSource&));
    void Tell_Status();
    std::intptr_t Window() const;
    HRESULT Close();

    PageForm form_;
    ComPtr<IPropertyPageSite> site_;
    ComPtr<IDispatch> object_;
    bool is_read_ = false;  // the texts are the object's, and what a person made of them
    bool is_active_ = false;
  };

  IUnknown* Interface_Of(REFIID iid) override;

  const CountedControl counted_;  // its form is on the session's thread, as a control is
  Page page_;
  PageDispatch dispatch_;
  SupportErrorInfo support_error_info_;
};

}  // namespace quillspeech::activex
