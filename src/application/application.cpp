#include "application/application.h"

#include <memory>
#include <utility>

#include "basis/failure.h"
#include "convert/frm_conversion.h"
#include "pointcloud/frm_pt_cloud.h"
#include "shell/frm_about.h"
#include "shell/frm_def_dir.h"
#include "shell/frm_save_file.h"
#include "shell/frm_startup.h"
#include "surferfns/frm_surf_fns.h"
#include "viewer/frm_csv_view.h"

namespace crownlab {

Application::Application(Desk& desk, std::string programFolder, ActiveObjects& objects) {
    session_.Objects = &objects;
    shell_.ProgramFolder = std::move(programFolder);
    shell_.Surfer = &session_;
    shell_.Files = &files_;
    services_ = {.Windows = &windows_, .Screen = &desk, .Files = &files_};
    AddMakers();
}

void Application::AddMakers() {
    windows_.AddMaker("frmStartup", [this] { return std::make_shared<FrmStartup>(services_, shell_); });
    windows_.AddMaker("frmDefDir", [this] { return std::make_shared<FrmDefDir>(services_, shell_); });
    windows_.AddMaker("frmAbout", [this] { return std::make_shared<FrmAbout>(services_); });
    windows_.AddMaker("frmSaveFile", [this] { return std::make_shared<FrmSaveFile>(services_, shell_); });
    windows_.AddMaker("frmConversion", [this] { return std::make_shared<FrmConversion>(services_, shell_); });
    windows_.AddMaker("frmPtCloud", [this] { return std::make_shared<FrmPtCloud>(services_, shell_); });
    windows_.AddMaker("frmSurfFns", [this] { return std::make_shared<FrmSurfFns>(services_, shell_); });
    windows_.AddMaker("frmCSVView", [this] { return std::make_shared<FrmCSVView>(services_, shell_); });
}

void Application::Start() { windows_.Show("frmStartup"); }

bool EndsProgram(const Failure& failure) {
    return failure.Handler() == "frmStartup.Form_Load" || failure.Handler() == "frmStartup.mnuNew_Click";
}

}  // namespace crownlab
