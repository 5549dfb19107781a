#include "manual/Completion.h"

#include "manual/ProgramText.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace vemo {

namespace {

std::string commandNames(const ProgramText& program) {
  std::string names;
  for (const CommandText& command : program.commands) {
    names += (names.empty() ? "" : " ") + command.name;
  }
  return names;
}

std::string optionNames(const std::vector<ArgumentText>& arguments) {
  std::string names;
  for (const ArgumentText& argument : arguments) {
    names += argument.isPositional
                 ? ""
                 : fmt::format("{}{}", names.empty() ? "" : " ", fmt::join(argument.names, " "));
  }
  return names;
}

/// What bash offers as the value of an option.
std::string bashValues(const ArgumentText& argument) {
  const auto choices = argument.getChoices();
  return !choices.empty()      ? fmt::format("_vemoscene_words \"{}\"", fmt::join(choices, " "))
         : argument.isFolder() ? "_vemoscene_files -d"
         : argument.isFile()   ? "_vemoscene_files -f"
                               : ":";
}

/// The cases of a command: of the values of its options, then of the word at hand.
std::string bashCases(const CommandText& command) {
  std::string cases;
  for (const ArgumentText& argument : command.arguments) {
    if (!argument.value.empty()) {
      cases += fmt::format("    {}) {} ;;\n",
                           fmt::format("{0}:{1}:*", command.name,
                                       fmt::join(argument.names, fmt::format(":*|{}:", command.name))),
                           bashValues(argument));
    }
  }
  return cases + fmt::format("    {}:*:-*) _vemoscene_words \"{}\" ;;\n", command.name,
                             optionNames(command.arguments));
}

/// In single quotes, within brackets or after a colon.
std::string zshText(const std::string& text) {
  std::string result;
  for (const char c : text) {
    result +=
        c == '\'' ? "'\\''" : std::string(c == '[' || c == ']' || c == ':' || c == '\\' ? "\\" : "") + c;
  }
  return result;
}

std::string zshValues(const ArgumentText& argument) {
  const auto choices = argument.getChoices();
  return !choices.empty()      ? fmt::format("({})", fmt::join(choices, " "))
         : argument.isFolder() ? "_files -/"
         : argument.isFile()   ? "_files"
                               : "";
}

std::string zshArguments(const std::vector<ArgumentText>& arguments) {
  std::string text;
  for (const ArgumentText& argument : arguments) {
    const std::string others = fmt::format("{}", fmt::join(argument.names, " "));
    for (const std::string& name : argument.isPositional ? std::vector<std::string>() : argument.names) {
      const bool hasEquals = !argument.value.empty() && name.starts_with("--");
      text += fmt::format(
          " \\\n        '{}{}{}[{}]{}'", argument.isRepeatable ? "*" : fmt::format("({})", others), name,
          hasEquals ? "=" : "", zshText(argument.description),
          argument.value.empty() ? "" : fmt::format(":{}:{}", zshText(argument.value), zshValues(argument)));
    }
  }
  return text;
}

}  // namespace

std::string makeBashCompletion(const ProgramText& program) {
  std::string cases;
  for (const CommandText& command : program.commands) {
    cases += bashCases(command);
  }
  return fmt::format(R"(# Completion for bash, made from the help texts of {0}.
_vemoscene_words() {{
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$current")
}}

_vemoscene_files() {{
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen "$1" -- "$current")
}}

_vemoscene() {{
  local current=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD - 1]}}
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    _vemoscene_words "{1} {2}"
    return
  fi
  case ${{COMP_WORDS[1]}}:$previous:$current in
{3}    help:*) _vemoscene_words "{1}" ;;
    *) _vemoscene_files -f ;;
  esac
}}

complete -F _vemoscene {0}
)",
                     program.name, commandNames(program), optionNames(program.options), cases);
}

std::string makeZshCompletion(const ProgramText& program) {
  std::string commands;
  std::string cases;
  for (const CommandText& command : program.commands) {
    commands += fmt::format("    '{}:{}'\n", command.name, zshText(command.description));
    const std::string rest =
        command.name == "help" ? fmt::format("'1:COMMAND:({})'", commandNames(program)) : "'*:FILE:_files'";
    cases += fmt::format("    {})\n      _arguments{} \\\n        {} ;;\n", command.name,
                         zshArguments(command.arguments), rest);
  }
  return fmt::format(R"(#compdef {0}
# Completion for zsh, made from the help texts of {0}.
_{0}() {{
  local -a commands
  commands=(
{1}  )
  if ((CURRENT == 2)); then
    _describe command commands
    _arguments{2}
    return
  fi
  shift words
  ((CURRENT--))
  case $words[1] in
{3}  esac
}}

_{0} "$@"
)",
                     program.name, commands, zshArguments(program.options), cases);
}

}  // namespace vemo
