#include "manual/ProgramText.h"

#include <CLI/CLI.hpp>

namespace vemo {

namespace {

ArgumentText describe(const CLI::Option& option) {
  ArgumentText text;
  for (const std::string& name : option.get_snames()) {
    text.names.push_back("-" + name);
  }
  for (const std::string& name : option.get_lnames()) {
    text.names.push_back("--" + name);
  }
  text.isPositional = text.names.empty();
  if (text.isPositional) {
    const bool isList = option.get_items_expected_max() > 1;
    text.names.push_back(option.get_name(true) + (isList ? "..." : ""));
  } else if (option.get_items_expected_max() > 0) {
    text.value = option.get_option_text();
  }
  text.description = option.get_description();
  text.isRepeatable = option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
  text.isRequired = option.get_required();
  return text;
}

std::vector<ArgumentText> describeArguments(const CLI::App& app) {
  std::vector<ArgumentText> arguments;
  for (const CLI::Option* const option : app.get_options()) {
    arguments.push_back(describe(*option));
  }
  return arguments;
}

}  // namespace

std::vector<std::string> ArgumentText::getChoices() const {
  return value.find('|') != std::string::npos ? CLI::detail::split(value, '|') : std::vector<std::string>();
}

ProgramText describeProgram(const CLI::App& app) {
  ProgramText program{app.get_name(), app.get_description(), app.get_footer(), describeArguments(app), {}};
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    program.commands.push_back(
        {command->get_name(), command->get_description(), describeArguments(*command)});
  }
  return program;
}

}  // namespace vemo
