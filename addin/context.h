// What every command works with: the IDE, the user and the IDE's options.
// One Context lives for one connection (or one run of the tool); later
// layers add the settings and the naming tables here.
#pragma once

#include "ide/object_model.h"
#include "platform/ide_options.h"
#include "platform/ui.h"

namespace tavrin::addin {

struct Context {
  ide::IVbe& vbe;  // the IDE's root object, VBInst
  platform::Ui& ui;
  platform::IdeOptions& ide_options;
};

}  // namespace tavrin::addin
