// How a property page is laid out: from its table alone, in one column or two.
#pragma once

#include "core/property_pages.hpp"

namespace quillspeech {

FormSize Page_Size(const PropertyPage& page);

// Adds the page's labels, boxes and button to its form, each label before its box.
void Lay_Out_Page(const PropertyPage& page, Form& form);

}  // namespace quillspeech
