// Walks the description of the command line. Commands and options without a group are hidden.
#include "mheg/manual/manual.h"

#include <CLI/CLI.hpp>

#include <system_error>
#include <vector>

#include "mheg/message.h"
#include "mheg/options.h"
#include "mheg/report_words.h"
#include "mheg/write_file.h"
#include "objects/vocabulary.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

std::vector<const CLI::App*> CommandsOf(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
}

std::vector<const CLI::Option*> OptionsOf(const CLI::App& app) {
  return app.get_options([](const CLI::Option* option) { return !option->get_group().empty(); });
}

bool IsPositional(const CLI::Option& option) { return !option.nonpositional(); }

std::vector<std::string> NamesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

// The word for the option's value: "FILE", or "dot|svg" if there is a choice. Empty for a flag.
std::string ValueOf(const CLI::Option& option) {
  if (option.get_items_expected_max() == 0) return "";
  std::string type = option.get_type_name();
  if (type.find('|') != std::string::npos) return type;
  if (type == "UINT" || type == "INT") return "N";
  std::string name = option.get_lnames().empty() ? type : option.get_lnames().front();
  for (char& c : name) c = korvel::UpperCase(c);
  return name;
}

// ---- The manual page ----

// Text as troff input: "-" is not a hyphen, and "." at the start of a line is not a request.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    const bool beginsLine = escaped.empty() || escaped.back() == '\n';
    if (beginsLine && (c == '.' || c == '\'')) escaped += "\\&";
    if (c == '\\') {
      escaped += "\\e";
    } else {
      if (c == '-') escaped += '\\';
      escaped += c;
    }
  }
  return escaped;
}

std::string Bold(const std::string& text) { return "\\fB" + Escaped(text) + "\\fR"; }
std::string Italic(const std::string& text) { return "\\fI" + Escaped(text) + "\\fR"; }

std::string Usage(const CLI::Option& option) {
  std::string usage;
  if (IsPositional(option)) {
    usage = Italic(option.get_name(true));
    if (option.get_items_expected_max() > 1) usage += " ...";
  } else {
    usage = Bold(NamesOf(option).back());
    if (!ValueOf(option).empty()) usage += " " + Italic(ValueOf(option));
  }
  return option.get_required() ? usage : "[" + usage + "]";
}

std::string Section(const CLI::App& command) {
  std::string usage = Bold("mheg " + command.get_name());
  std::string options;
  for (const CLI::Option* option : OptionsOf(command)) {
    const bool isHelp = option == command.get_help_ptr();
    if (!isHelp) usage += " " + Usage(*option);
    if (isHelp) continue;
    std::string names = IsPositional(*option) ? Italic(option->get_name(true)) : "";
    for (const std::string& name : NamesOf(*option))
      names += (names.empty() ? "" : ", ") + Bold(name);
    if (!IsPositional(*option) && !ValueOf(*option).empty())
      names += " " + Italic(ValueOf(*option));
    options += ".TP\n" + names + "\n" + Escaped(option->get_description()) + ".";
    const std::string standard = option->get_default_str();
    options += standard.empty() ? "\n" : " Default: " + Escaped(standard) + ".\n";
  }
  return ".SS " + Escaped(command.get_name()) + "\n" + usage + "\n.PP\n" +
         Escaped(command.get_description()) + ".\n" + options;
}

// ---- Completions ----

// The branches of a shell's `case` for the options of a command that take one of several words.
std::string WordCases(const CLI::App& command) {
  std::string cases;
  for (const CLI::Option* option : OptionsOf(command)) {
    std::string words = ValueOf(*option);
    if (words.find('|') == std::string::npos || IsPositional(*option)) continue;
    for (char& c : words) c = c == '|' ? ' ' : c;
    std::vector<std::string> patterns;
    for (const std::string& name : NamesOf(*option)) {
      patterns.push_back("\"" + command.get_name() + " " + name + "\"");
    }
    cases += "    " + Joined(patterns, "|") + ") words=\"" + words + "\" ;;\n";
  }
  return cases;
}

// A page for `man` with all commands that --help lists.
std::string ManualPage(const CLI::App& app) {
  std::string page = ".TH MHEG 1 \"\" \"mheg " TOOL_VERSION "\" \"User Commands\"\n"
                     ".SH NAME\nmheg \\- tool for authors of MHEG\\-5 applications\n"
                     ".SH SYNOPSIS\n" +
                     Bold("mheg") + " " + Italic("COMMAND") + " [" + Italic("OPTION") +
                     "] ...\n.SH DESCRIPTION\n" + Escaped(app.get_description()) +
                     "\n.SH OPTIONS\n";
  for (const CLI::Option* option : OptionsOf(app)) {
    std::vector<std::string> names;
    for (const std::string& name : NamesOf(*option)) names.push_back(Bold(name));
    page += ".TP\n" + Joined(names, ", ") + "\n" + Escaped(option->get_description()) + ".\n";
  }
  page += ".SH COMMANDS\n";
  for (const CLI::App* command : CommandsOf(app)) page += Section(*command);
  return page + ".SH EXIT STATUS\n" + Escaped(app.get_footer()) + "\n";
}

// A script for bash that completes commands, options, their words, and files.
std::string BashCompletions(const CLI::App& app) {
  std::vector<std::string> names;
  std::string options;
  std::string words;
  for (const CLI::App* command : CommandsOf(app)) {
    names.push_back(command->get_name());
    std::vector<std::string> ofCommand;
    for (const CLI::Option* option : OptionsOf(*command)) {
      for (const std::string& name : NamesOf(*option)) ofCommand.push_back(name);
    }
    options += "    " + command->get_name() + ") words=\"" + Joined(ofCommand, " ") + "\" ;;\n";
    words += WordCases(*command);
  }
  return "# Completions for bash: commands, options and their words. Files are completed by "
         "default.\n"
         "_mheg() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]} words=\n"
         "  local previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
         "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
         "    words=\"" +
         Joined(names, " ") +
         " --help --version\"\n"
         "  elif [ \"${current:0:1}\" = - ]; then\n"
         "    case $command in\n" +
         options +
         "    esac\n"
         "  else\n"
         "    case \"$command $previous\" in\n" +
         words +
         "    esac\n"
         "  fi\n"
         "  COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
         "}\n"
         "complete -o bashdefault -o default -F _mheg mheg\n";
}

bool Write(const fs::path& file, const std::string& text) {
  std::error_code problem;
  fs::create_directories(file.parent_path(), problem);
  if (WriteFile(file, text)) return true;
  Print({{file, "cannot be written"}}, stderr);
  return false;
}

}  // namespace

bool WriteManual(const fs::path& folder) {
  CLI::App app;
  Options ignored;
  Describe(app, ignored);
  return Write(folder / "share/man/man1/mheg.1", ManualPage(app)) &&
         Write(folder / "share/bash-completion/completions/mheg", BashCompletions(app));
}

}  // namespace mheg
