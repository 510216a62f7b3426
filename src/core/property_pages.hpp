// The eight property pages: sheets of labelled text boxes, one for each member, as data and as
// forms.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/form.hpp"
#include "session/session.hpp"

namespace quillspeech {

// One text box "txt" + name, with a label "lbl" + name.
struct PageBox {
  std::string_view name;
  bool is_bound = true;  // to the member of that name; others only mark the page as changed
};

struct PropertyPage {
  std::string_view name;
  std::string_view caption;
  std::span<const PageBox> boxes;  // the bound ones in the order of reading and writing
  bool has_help = true;            // Command1
};

constexpr std::size_t Property_Page_Count = 8;

// In the order in which a container shows them.
std::span<const PropertyPage, Property_Page_Count> Property_Pages();

// The members that the page binds, in its order.
std::vector<std::string_view> Bound_Members(const PropertyPage& page);

// Reaches the members of one control late, by name. A member that fails throws its RunTimeFailure.
class MemberSource {
 public:
  virtual ~MemberSource() = default;

  virtual std::string Get(std::string_view member) = 0;  // as a text
  virtual void Let(std::string_view member, std::string_view text) = 0;
};

// A page as it stands in a container's window.
class PageForm {
 public:
  // `window` tells the page's window, in whose name the help page opens.
  PageForm(const PropertyPage& page, Session& session, std::function<std::intptr_t()> window);

  // The texts become the members' values, in order. The first that fails ends it and goes out.
  void PropertyPage_SelectionChanged(MemberSource& control);
  // Every bound member is set, changed or not, in order. The first that fails ends it and goes out;
  // the page then stays changed.
  void PropertyPage_ApplyChanges(MemberSource& control);

  Form& View() { return form_; }
  const Form& View() const { return form_; }
  const PropertyPage& Page() const { return page_; }
  bool Is_Changed() const { return is_changed_; }

  std::function<void()> At_Change;  // a person has typed something

 private:
  const PropertyPage& page_;
  Form form_;
  bool is_changed_ = false;
};

}  // namespace quillspeech
