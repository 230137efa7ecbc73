#pragma once

#include "forms/form.h"

namespace crownlab {

struct FrmAbout : Form {
    explicit FrmAbout(Services& services);

    Label Label1{*this, "Label1", "The Crownlab"};
    Label Label2{*this, "Label2",
                 "A program to carry out manipulations of three-dimensional surface data within the geological mapping "
                 "program 'Surfer'."};
    Label Label3{*this, "Label3",
                 "Written for the study of tooth shape. Free software under the GNU GPL, version 3 or later."};
    Label Label4{*this, "Label4", "Version 3.0"};
    Label Label5{*this, "Label5"};
    CommandButton Command1{*this, "Command1", "OK"};
};

/// Shows when the program's executable was made. Its path is a constant of the build; FileNotFound where
/// there is no such file.
void Form_Load(FrmAbout& form);
void Command1_Click(FrmAbout& form);

}  // namespace crownlab
