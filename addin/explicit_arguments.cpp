#include "addin/explicit_arguments.h"

#include <memory>
#include <vector>

#include "addin/pane_command.h"
#include "addin/referenced_libraries.h"
#include "base/text.h"
#include "ide/ignore_errors.h"
#include "scan/module_text_scanner.h"
#include "scan/proc_arguments.h"
#include "scan/proc_def.h"
#include "scan/project_scanner.h"

namespace tavrin::addin {
namespace {

using Arguments = std::optional<std::vector<scan::C4_ProcArgument>>;

struct Module {
  std::shared_ptr<ide::IComponent> component;
  std::string project;
  std::string name;
  bool is_class = false;  // a class, form or user control: its methods need an object
  scan::ModuleScan scan;
};

class Finder {
 public:
  Finder(ide::IVbe& vbe, ide::IComponent& current, int caret_line,
         std::vector<scan::ProjectSymbol> libraries)
      : vbe_(vbe),
        current_name_(current.Name()),
        caret_line_(caret_line),
        libraries_(std::move(libraries)) {
    ide::IgnoreErrors([&] {
      const auto projects = vbe.VBProjects();
      for (int p = 1; p <= projects->Count(); ++p) {
        const auto project = projects->Item(p);
        const auto components = project->VBComponents();
        for (int c = 1; c <= components->Count(); ++c)
          ide::IgnoreErrors([&] { Add(project->Name(), components->Item(c)); });
      }
    });
    // The module at the caret first, even when another project repeats it.
    const auto current_first = std::stable_partition(
        modules_.begin(), modules_.end(), [&](const Module& m) { return m.name == current_name_; });
    if (current_first == modules_.begin()) {
      Module module;
      module.name = current_name_;
      modules_.insert(modules_.begin(), std::move(module));
    }
  }

  Arguments operator()(const transform::CalledName& called) const {
    if (auto found = InProjects(called)) return found;
    return InLibraries(called);
  }

 private:
  Arguments InProjects(const transform::CalledName& called) const {
    const Module& current = modules_.front();
    const std::string& qualifier = called.qualifier;
    if (qualifier.empty() || EqualsIgnoreCase(qualifier, "Me")) {
      if (auto found = In(current, called.name, false)) return found;
      if (!qualifier.empty()) return std::nullopt;
      for (const Module& module : modules_)
        if (&module != &current && !module.is_class)
          if (auto found = In(module, called.name, true)) return found;
      return std::nullopt;
    }
    for (const Module& module : modules_)
      if (EqualsIgnoreCase(module.name, qualifier))
        return In(module, called.name, &module != &current);
    if (const Module* of_variable = ClassOfVariable(qualifier))
      return In(*of_variable, called.name, true);
    // An object the code does not tell the class of: the one class that has
    // the method.
    Arguments only;
    int classes = 0;
    for (const Module& module : modules_) {
      if (!module.is_class) continue;
      if (auto found = In(module, called.name, true)) {
        only = std::move(found);
        ++classes;
      }
    }
    return classes == 1 ? only : std::nullopt;
  }

  // A procedure of a library's module, plain or qualified by the module or
  // the library; the first reference that has it wins, as in the language.
  Arguments InLibraries(const transform::CalledName& called) const {
    const std::string& qualifier = called.qualifier;
    if (EqualsIgnoreCase(qualifier, "Me") || qualifier.starts_with(".")) return std::nullopt;
    for (const scan::ProjectSymbol& symbol : libraries_) {
      const scan::Declaration& procedure = symbol.declaration;
      if (procedure.kind != scan::DeclKind::kProcedure ||
          !EqualsIgnoreCase(procedure.name, called.name) ||
          !(qualifier.empty() || EqualsIgnoreCase(qualifier, symbol.module) ||
            EqualsIgnoreCase(qualifier, symbol.project)))
        continue;
      scan::C4_ProcArguments arguments;
      (void)arguments.init("Sub " + procedure.name + "(" + procedure.arguments + ")");
      return arguments.Items();
    }
    return std::nullopt;
  }

  void Add(const std::string& project, std::shared_ptr<ide::IComponent> component) {
    Module module;
    module.project = project;
    module.name = component->Name();
    module.is_class = component->Type() != ide::ComponentType::kStdModule;
    if (const auto code = component->CodeModule()) module.scan = scan::ScanCodeModule(*code);
    module.component = std::move(component);
    modules_.push_back(std::move(module));
  }

  // The declared arguments of a Sub or Function of the module.
  Arguments In(const Module& module, std::string_view name, bool public_only) const {
    if (!module.component) return std::nullopt;
    for (const scan::ScannedProc& proc : module.scan.procedures) {
      if (proc.kind != ide::ProcKind::kProc || !EqualsIgnoreCase(proc.name, name) ||
          (public_only && proc.scope != scan::DeclScope::kGlobal))
        continue;
      scan::C4_ProcDef def;
      (void)def.init(&vbe_, module.project, *module.component, proc.name, ide::ProcKind::kProc);
      return def.ProcArguments().Items();
    }
    return std::nullopt;
  }

  // The class module of a variable declared in scope at the caret, or a
  // public one of a standard module.
  const Module* ClassOfVariable(std::string_view variable) const {
    const auto class_named = [&](const std::string& type) -> const Module* {
      for (const Module& module : modules_)
        if (module.is_class && EqualsIgnoreCase(module.name, type)) return &module;
      return nullptr;
    };
    for (const scan::Declaration* declaration :
         scan::DeclarationsInScope(modules_.front().scan, caret_line_))
      if (EqualsIgnoreCase(declaration->name, variable)) return class_named(declaration->type);
    for (const Module& module : modules_)
      if (!module.is_class)
        for (const scan::Declaration& declaration : module.scan.declarations)
          if (declaration.scope == scan::DeclScope::kGlobal &&
              EqualsIgnoreCase(declaration.name, variable))
            return class_named(declaration.type);
    return nullptr;
  }

  ide::IVbe& vbe_;
  std::string current_name_;
  int caret_line_;
  std::vector<scan::ProjectSymbol> libraries_;
  std::vector<Module> modules_;
};

}  // namespace

transform::ArgumentsLookup CalledProcedures(ide::IVbe& vbe, ide::IComponent& current,
                                            int caret_line,
                                            std::vector<scan::ProjectSymbol> libraries) {
  auto finder = std::make_shared<const Finder>(vbe, current, caret_line, std::move(libraries));
  return [finder](const transform::CalledName& called) { return (*finder)(called); };
}

Result<transform::CallRewrite> RewriteCallAtCaret(ide::IVbe& vbe,
                                                  std::vector<scan::ProjectSymbol> libraries) {
  const auto pane = vbe.ActiveCodePane();
  const auto module = pane->CodeModule();
  const ide::TextRange caret = pane->GetSelection();
  const int count = module->CountOfLines();
  const std::string code = count > 0 ? module->Lines(1, count) : "";
  auto rewrite = transform::ExplicitArguments(
      SplitCrLf(code), caret.start_line, caret.start_column,
      CalledProcedures(vbe, *module->Parent(), caret.start_line, std::move(libraries)));
  if (!rewrite) return rewrite;
  const auto old_lines = SplitCrLf(code);
  const auto new_lines = SplitCrLf(rewrite->text);
  for (std::size_t i = 0; i < new_lines.size(); ++i) {
    const int line = rewrite->first_line + static_cast<int>(i);
    if (old_lines[line - 1] != new_lines[i]) module->ReplaceLine(line, std::string(new_lines[i]));
  }
  pane->SetSelection({rewrite->caret_line, rewrite->caret_column, rewrite->caret_line,
                      rewrite->caret_column});
  return rewrite;
}

bool ExplicitArguments(Context& context) {
  return RunPaneCommand(context, /*shows_dialog=*/false, [&] {
    const auto rewrite = RewriteCallAtCaret(context.vbe, ReferencedLibrarySymbols(context));
    if (!rewrite) TellUser(context, rewrite.error());
    return rewrite.ok();
  });
}

void RunExplicitArguments(CommandHost& host, std::string_view) {
  ExplicitArguments(host.CommandContext());
}

}  // namespace tavrin::addin
