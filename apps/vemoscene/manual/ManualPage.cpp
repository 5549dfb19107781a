#include "manual/ManualPage.h"

#include "manual/ProgramText.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>

namespace vemo {

namespace {

/// As roff shows it unchanged: hyphens can be copied into a shell.
std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if ((c == '.' || c == '\'') && (result.empty() || result.back() == '\n')) {
      result += "\\&";
    }
    result += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
  }
  return result;
}

std::string argument(const ArgumentText& text) {
  if (text.isPositional) {
    return fmt::format(".TP\n\\fI{}\\fR\n{}\n", escaped(text.names.front()), escaped(text.description));
  }
  std::string names;
  for (const std::string& name : text.names) {
    names += fmt::format("{}\\fB{}\\fR", names.empty() ? "" : ", ", escaped(name));
  }
  const std::string value = text.value.empty() ? "" : fmt::format(" \\fI{}\\fR", escaped(text.value));
  return fmt::format(".TP\n{}{}\n{}{}\n", names, value, escaped(text.description),
                     text.isRepeatable ? "; can be given several times" : "");
}

std::string arguments(const std::vector<ArgumentText>& all, bool arePositional) {
  std::string text;
  for (const ArgumentText& each : all) {
    text += each.isPositional == arePositional ? argument(each) : "";
  }
  return text;
}

std::string synopsis(const ProgramText& program, const CommandText& command) {
  std::string text = fmt::format(".PP\n\\fB{} {}\\fR", program.name, command.name);
  for (const ArgumentText& each : command.arguments) {
    if (each.isPositional) {
      const std::string name = fmt::format("\\fI{}\\fR", escaped(each.names.front()));
      text += each.isRequired ? " " + name : " [" + name + "]";
    }
  }
  return text + " [\\fIOPTION\\fR]...\n";
}

}  // namespace

std::string makeManualPage(const ProgramText& program, const std::string& version) {
  std::string title = program.name;
  std::ranges::transform(title, title.begin(), [](unsigned char c) { return std::toupper(c); });
  std::string summary = program.description.substr(0, program.description.find_last_not_of('.') + 1);
  summary.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(summary.front())));
  std::string page =
      fmt::format(".TH {} 1 \"\" \"{} {}\" \"User Commands\"\n.SH NAME\n{} \\- {}\n.SH SYNOPSIS\n", title,
                  program.name, version, program.name, escaped(summary));
  std::string commands = ".SH COMMANDS\n";
  for (const CommandText& command : program.commands) {
    page += synopsis(program, command);
    commands += fmt::format(".SS {}\n{}.\n{}{}", escaped(command.name), escaped(command.description),
                            arguments(command.arguments, true), arguments(command.arguments, false));
  }
  page += ".SH OPTIONS\n" + arguments(program.options, false) + commands;
  // As it is, for its columns.
  const std::size_t end = program.footer.find('\n');
  page += fmt::format(".SH EXIT STATUS\n.nf\n{}\n.fi\n", escaped(program.footer.substr(end + 1)));
  return page;
}

}  // namespace vemo
