#include "desktop/form_layouts.h"

#include <array>
#include <stdexcept>

#include "ui_frmAbout.h"
#include "ui_frmCSVView.h"
#include "ui_frmConversion.h"
#include "ui_frmDefDir.h"
#include "ui_frmPtCloud.h"
#include "ui_frmSaveFile.h"
#include "ui_frmStartup.h"
#include "ui_frmSurfFns.h"

namespace crownlab {
namespace {

template <typename Layout>
void SetUp(QWidget& window) {
    // The record of pointers isn't kept: widgets are found by name.
    Layout{}.setupUi(&window);
}

struct FormLayout {
    const char* Form;
    void (*SetUp)(QWidget& window);
};

constexpr auto kLayouts = std::to_array<FormLayout>({
    {"frmStartup", SetUp<Ui::frmStartup>},
    {"frmDefDir", SetUp<Ui::frmDefDir>},
    {"frmAbout", SetUp<Ui::frmAbout>},
    {"frmSaveFile", SetUp<Ui::frmSaveFile>},
    {"frmConversion", SetUp<Ui::frmConversion>},
    {"frmPtCloud", SetUp<Ui::frmPtCloud>},
    {"frmSurfFns", SetUp<Ui::frmSurfFns>},
    {"frmCSVView", SetUp<Ui::frmCSVView>},
});

}  // namespace

void SetUpLayout(const std::string& form, QWidget& window) {
    for (const FormLayout& layout : kLayouts) {
        if (form == layout.Form) return layout.SetUp(window);
    }
    throw std::logic_error("there is no layout for " + form);
}

std::vector<std::string> LaidOutForms() {
    std::vector<std::string> forms;
    forms.reserve(kLayouts.size());
    for (const FormLayout& layout : kLayouts) forms.emplace_back(layout.Form);
    return forms;
}

}  // namespace crownlab
