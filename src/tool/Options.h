// The command line: option tables, parsing, lookups and the usage text.
#pragma once

#include <iostream>
#include <map>
#include <ostream>
#include <string>
#include <vector>

// Option letter to option name.
using OptionTable = std::map<char, std::string>;

// Option name to value; a flag holds "true", a list option its values joined by '\n'.
using Options = std::map<std::string, std::string>;

// The three option tables of kel-trace and its default letter, which a bare
// argument stands for.
OptionTable listOptionTable();
OptionTable valueOptionTable();
OptionTable flagOptionTable();
inline constexpr char defaultOptionLetter = 'f';

// Parses argv from index 1. Unknown options are reported on `log` and skipped;
// an option that lacks its argument is dropped without a word.
Options getOptions(int argc, char** argv, OptionTable const& listOptions,
                   OptionTable const& valueOptions, OptionTable const& flagOptions,
                   char const& defaultOption, std::ostream& log = std::cerr);

// Present with a non-empty value.
bool hasOption(Options const& options, std::string const& name);

// The value, or "" when hasOption does not hold.
std::string getOption(Options const& options, std::string const& name);

// The values of a list option in command-line order; empty when absent.
std::vector<std::string> getOptionList(Options const& options, std::string const& name);

// Ports are run and compared unless "-u" was given.
bool isComponentConstrainedByPorts(Options const& options);

// The three lines of usage, naming the program as it was started.
void printManual(std::string const& programName, std::ostream& out);
