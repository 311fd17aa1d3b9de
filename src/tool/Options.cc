#include "tool/Options.h"

OptionTable listOptionTable() { return {{'I', "includepath"}}; }

OptionTable valueOptionTable() {
    return {{'m', "modelname"}, {'s', "spectracefile"}, {'S', "spectrace"}, {'t', "tracefile"},
            {'T', "trace"},     {'e', "errormessage"},  {'f', "modelpath"}};
}

OptionTable flagOptionTable() { return {{'d', "debug"}, {'h', "help"}, {'u', "unconstrained"}}; }

namespace {

bool takesNoValue(int next, int argc, char** argv) { return next >= argc || argv[next][0] == '-'; }

} // namespace

Options getOptions(int argc, char** argv, OptionTable const& listOptions,
                   OptionTable const& valueOptions, OptionTable const& flagOptions,
                   char const& defaultOption, std::ostream& log) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        std::string const argument = argv[i];
        if (argument.size() < 2 || argument[0] != '-') {
            if (auto bare = valueOptions.find(defaultOption); bare != valueOptions.end()) {
                options[bare->second] = argument;
            }
            continue;
        }
        // Only the letter right behind the dash counts: "-mFoo" is "-m".
        char const letter = argument[1];
        if (auto list = listOptions.find(letter); list != listOptions.end()) {
            if (takesNoValue(i + 1, argc, argv)) {
                continue;
            }
            auto [entry, isNew] = options.try_emplace(list->second, argv[++i]);
            if (!isNew) {
                entry->second += '\n';
                entry->second += argv[i];
            }
        } else if (auto value = valueOptions.find(letter); value != valueOptions.end()) {
            if (takesNoValue(i + 1, argc, argv)) {
                continue;
            }
            options[value->second] = argv[++i];
        } else if (auto flag = flagOptions.find(letter); flag != flagOptions.end()) {
            options[flag->second] = "true";
        } else {
            log << "unknown option: '" << argument << "' ignored\n";
        }
    }
    return options;
}

bool hasOption(Options const& options, std::string const& name) {
    auto found = options.find(name);
    return found != options.end() && !found->second.empty();
}

std::string getOption(Options const& options, std::string const& name) {
    return hasOption(options, name) ? options.at(name) : std::string();
}

std::vector<std::string> getOptionList(Options const& options, std::string const& name) {
    std::vector<std::string> values;
    if (!hasOption(options, name)) {
        return values;
    }
    // Cut at every '\n', keeping empty pieces: "-I ''" names a directory too.
    std::string const& joined = options.at(name);
    std::string::size_type start = 0;
    for (auto end = joined.find('\n'); end != std::string::npos; end = joined.find('\n', start)) {
        values.push_back(joined.substr(start, end - start));
        start = end + 1;
    }
    values.push_back(joined.substr(start));
    return values;
}

bool isComponentConstrainedByPorts(Options const& options) {
    return !options.contains("unconstrained");
}

void printManual(std::string const& programName, std::ostream& out) {
    out << "Synopsis: " << programName
        << " -m <modelname> [-u] [-f <modelpath>] [-s <spectracefile> | -S <spectrace>]"
           " [-t <tracefile> | -T <trace>] [-e <error>] KELFILE\n"
           "Read named event trace from <tracefile>, <trace> or STDIN and write\n"
           "first matching sequence diagram for <modelname> to STDOUT.\n";
}
