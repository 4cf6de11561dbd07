#include "SYCommandLine.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "SYCliDetails.h"
#include "SYCliDocument.h"
#include "SYCliError.h"
#include "SYCliInventory.h"
#include "SYCliPlatform.h"
#include "SYCliRules.h"
#include "SYCliViews.h"
#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

namespace {

constexpr const char* kVersion = "trellisview 0.13.0";

// Writes a whole file; a failure names it.
template <class Writer> void writeFile(const std::string& path, Writer writer) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (out)
        writer(out);
    if (!out || !out.flush())
        throw SYCliError(SYCliError::StoreFailed, path + ": cannot be written");
}

// Every value any command takes; each command binds the ones it has.
struct Args {
    std::string db;
    std::string format;
    std::string platform = "pc";
    bool platformGiven = false;
    std::string mode, company, sort, type, name, time, app, version, comment, file,
        profile = "demo", out;
    std::optional<std::uint64_t> size;
    std::uint32_t id = 0;
    std::uint32_t id2 = 0;
    bool dryRun = false;
    bool replace = false;
    int clients = 0;
    std::uint32_t seed = 1;
};

using Run = std::function<SYCliDocument(SYDatabase&)>;

struct Command {
    CLI::App* app;
    Run run;
    bool view; // may be exported
};

class Builder {
public:
    Builder()
        : m_app("Software inventory: views, rules and inventories from the command line.",
                "trellisview") {
        m_app.set_version_flag("--version", kVersion);
        m_app.require_subcommand(1);
        m_app.footer("Exit codes: 0 done, 1 the store failed or refused or an id is unknown, "
                     "2 bad usage, 3 a rule write refused by the rules.\nWithout a command, "
                     "trellisview [--db FILE] prints the summary.");
        Views();
        RuleCommands();
        Export();
        Generate();
    }

    CLI::App& App() { return m_app; }
    Args& Values() { return m_args; }
    const Command* Chosen() const {
        for (const Command& command : m_commands) {
            if (command.app->parsed())
                return &command;
        }
        return nullptr;
    }
    CLI::App* ExportCommand() const { return m_export; }
    CLI::App* GenerateCommand() const { return m_generate; }
    const std::string& ExportKind() const { return m_exportKind; }

private:
    void Common(CLI::App* command, bool view) {
        command->add_option("--db", m_args.db, "the inventory (default: the demo inventory)");
        if (view)
            command
                ->add_option("--format", m_args.format,
                             "text (default on a terminal), csv (default otherwise) or json")
                ->check(CLI::IsMember({"text", "csv", "json"}));
    }
    void Platform(CLI::App* command, std::vector<std::string> words) {
        command
            ->add_option_function<std::string>(
                "--platform",
                [this](const std::string& word) {
                    m_args.platform = word;
                    m_args.platformGiven = true;
                },
                "pc (default), ce, palm or rim as the command allows")
            ->check(CLI::IsMember(std::move(words)));
    }
    CLI::App* Add(CLI::App& parent, const std::string& name, const std::string& what, Run run,
                  bool view = true) {
        CLI::App* command = parent.add_subcommand(name, what);
        Common(command, true);
        m_commands.push_back({command, std::move(run), view});
        return command;
    }
    unsigned char PlatformType() const { return SYCliPlatform::Parse(m_args.platform); }

    void Views() {
        Args& a = m_args;
        Add(m_app, "summary", "per platform: clients, files, applications, unidentified, ignored",
            [](SYDatabase& db) { return SYCliViews(db).Summary(); });
        auto* tree = Add(m_app, "tree",
                         "the inventory tree: roots with counts, companies, "
                         "applications (every platform unless --platform)",
                         [this](SYDatabase& db) {
                             return SYCliViews(db).Tree(!m_args.platformGiven, PlatformType());
                         });
        Platform(tree, {"pc", "ce", "palm", "rim"});
        auto* list =
            Add(m_app, "list",
                "a list of the inventory, rows and columns as the list "
                "shows them, in its sort order",
                [this](SYDatabase& db) {
                    if (m_args.mode == "apps" && m_args.company.empty())
                        throw SYCliError(SYCliError::BadUsage, "list apps: --company is required");
                    return SYCliViews(db).List(m_args.mode, PlatformType(), m_args.company,
                                               m_args.sort);
                });
        list->add_option("MODE", a.mode, "companies, apps, palm, rim, unidentified or ignored")
            ->required()
            ->check(CLI::IsMember({"companies", "apps", "palm", "rim", "unidentified", "ignored"}));
        list->add_option("--company", a.company, "the company of the apps list (id or name)");
        list->add_option("--sort", a.sort, "a column key, with :desc for descending order");
        Platform(list, {"pc", "ce"});
        auto* file =
            Add(m_app, "file",
                "a file's verdict: state, effective rule and its source, "
                "application",
                [this](SYDatabase& db) { return SYCliViews(db).File(m_args.id, PlatformType()); });
        file->add_option("FILE_ID", a.id, "the file's id")->required();
        Platform(file, {"pc", "ce"});
        auto* app =
            Add(m_app, "app", "an application: totals, its files, one row per installation",
                [this](SYDatabase& db) { return SYCliDetails(db).App(m_args.id, PlatformType()); });
        app->add_option("ID", a.id, "the application's id")->required();
        Platform(app, {"pc", "ce", "palm", "rim"});
        auto* installation =
            Add(m_app, "installation", "the details of one installation", [this](SYDatabase& db) {
                return SYCliDetails(db).Installation(m_args.id, m_args.id2, PlatformType());
            });
        installation->add_option("CLIENT_ID", a.id, "the client's id")->required();
        installation
            ->add_option("INSTALLATION_ID", a.id2,
                         "the installation's id (on palm and rim, the application's id)")
            ->required();
        Platform(installation, {"pc", "ce", "palm", "rim"});
    }

    void RuleCommands() {
        Args& a = m_args;
        CLI::App* rules = m_app.add_subcommand("rules", "the user rules");
        rules->require_subcommand(1);
        auto* list =
            Add(*rules, "list", "the active user rules with their ids", [this](SYDatabase& db) {
                return SYCliViews(db).Rules(PlatformType(), m_args.type);
            });
        list->add_option("--type", a.type, "identify or ignore")
            ->check(CLI::IsMember({"identify", "ignore"}));
        Platform(list, {"pc", "ce"});

        auto* identify = Write(*rules, "identify", "an identification rule, applied at once",
                               [this](SYCliRules& writer) {
                                   SYIdRuleItem rule;
                                   FileInfo(rule);
                                   rule.SetAppName(m_args.app);
                                   rule.SetAppVersion(m_args.version);
                                   rule.SetAppCompany(m_args.company);
                                   return writer.Identify(rule);
                               });
        FileOptions(identify);
        identify->add_option("--app", a.app, "the application")->required();
        identify->add_option("--version", a.version, "its version");
        identify->add_option("--company", a.company, "its company");
        identify->add_flag("--replace", a.replace, "overwrite a rule of the same file information");

        auto* ignore =
            Write(*rules, "ignore", "an ignore rule, applied at once", [this](SYCliRules& writer) {
                SYIgnoreRuleItem rule;
                FileInfo(rule);
                rule.SetComment(m_args.comment);
                return writer.Ignore(rule);
            });
        FileOptions(ignore);
        ignore->add_option("--comment", a.comment, "why the file is ignored");
        ignore->add_flag("--replace", a.replace, "overwrite a rule of the same file information");

        auto* ignoreApp = Write(
            *rules, "ignore-app",
            "one exact ignore rule per file of the "
            "application",
            [this](SYCliRules& writer) { return writer.IgnoreApp(m_args.id, m_args.comment); });
        ignoreApp->add_option("APP_ID", a.id, "the application's id")->required();
        ignoreApp->add_option("--comment", a.comment, "the comment of every rule");

        auto* remove = Write(*rules, "remove", "removes a rule, applied at once",
                             [this](SYCliRules& writer) { return writer.Remove(m_args.id); });
        remove->add_option("RULE_ID", a.id, "the rule's id")->required();

        auto* import = Write(*rules, "import", "adds the rules of a CSV file, all or none",
                             [this](SYCliRules& writer) { return writer.Import(m_args.file); });
        import->add_option("FILE", a.file, "CSV as rules export writes it")->required();
        import->add_flag("--replace", a.replace, "overwrite rules of the same file information");

        auto* exportRules = rules->add_subcommand("export", "writes the user rules as CSV");
        Common(exportRules, false);
        Platform(exportRules, {"pc", "ce"});
        exportRules->add_option("FILE", a.file, "the CSV file to write")->required();
        m_commands.push_back({exportRules,
                              [this](SYDatabase& db) {
                                  const SYCliDocument all =
                                      SYCliViews(db).Rules(PlatformType(), {}, false);
                                  writeFile(m_args.file, [&](std::ostream& out) {
                                      all.Write(out, SYCliDocument::Format::Csv);
                                  });
                                  return SYCliDocument();
                              },
                              false});
    }

    CLI::App* Write(CLI::App& rules, const std::string& name, const std::string& what,
                    std::function<SYCliDocument(SYCliRules&)> write) {
        auto* command = Add(
            rules, name, what,
            [this, write](SYDatabase& db) {
                SYCliRules writer(db, {PlatformType(), SYCliInventory::InstallFolder(db.Path()),
                                       m_args.dryRun, m_args.replace});
                return write(writer);
            },
            false);
        command->add_flag("--dry-run", m_args.dryRun, "show what would change and write nothing");
        Platform(command, {"pc", "ce"});
        return command;
    }

    void FileOptions(CLI::App* command) {
        command->add_option("NAME", m_args.name, "the file name")->required();
        command->add_option("--size", m_args.size, "only files of this size in bytes");
        command->add_option("--time", m_args.time,
                            "only files of this modify time, YYYY-MM-DDTHH:MM[:SS]");
    }

    void FileInfo(SYSWRuleItem& rule) const {
        rule.SetItemType(ItemTypeRule);
        rule.SetFileName(m_args.name);
        if (m_args.size)
            rule.SetFileSize(*m_args.size);
        if (m_args.time.empty())
            return;
        CTime time;
        if (!SYCliTable::ParseIsoTime(m_args.time, time))
            throw SYCliError(SYCliError::BadUsage, "--time: not a time: " + m_args.time);
        rule.SetModTime(time);
    }

    void Export() {
        m_export = m_app.add_subcommand(
            "export",
            "a view as a PDF or CSV file: export pdf|csv VIEW [its arguments] --out FILE");
        m_export->add_option("KIND", m_exportKind, "pdf or csv")
            ->required()
            ->check(CLI::IsMember({"pdf", "csv"}));
        m_export->prefix_command();
    }

    void Generate() {
        Args& a = m_args;
        m_generate = m_app.add_subcommand("generate", "a new inventory and its system rules");
        m_generate->add_option("--clients", a.clients, "how many clients")
            ->required()
            ->check(CLI::PositiveNumber);
        m_generate->add_option("--profile", a.profile, "demo (default) or realistic")
            ->check(CLI::IsMember({"demo", "realistic"}));
        m_generate->add_option("--seed", a.seed, "the same seed gives the same inventory");
        m_generate->add_option("--out", a.out, "the new inventory file")->required();
    }

    CLI::App m_app;
    Args m_args;
    std::vector<Command> m_commands;
    CLI::App* m_export = nullptr;
    CLI::App* m_generate = nullptr;
    std::string m_exportKind;
};

// The command whose words were read last, for its usage.
CLI::App* deepest(CLI::App* app) {
    for (;;) {
        const auto parsed = app->get_subcommands();
        if (parsed.empty())
            return app;
        app = parsed.front();
    }
}

int usageError(CLI::App& root, const std::string& reason) {
    std::cerr << "trellisview: " << reason << '\n' << deepest(&root)->help();
    return SYCliError::BadUsage;
}

SYCliDocument::Format formatOf(const std::string& word) {
    if (word == "json")
        return SYCliDocument::Format::Json;
    if (word == "csv" || (word.empty() && isatty(STDOUT_FILENO) == 0))
        return SYCliDocument::Format::Csv;
    return SYCliDocument::Format::Text;
}

// The last failure the library reported while a view read the store, if any.
void checkReports(const std::string& file) {
    const auto& reports = SYGetApp().Reports();
    if (!reports.empty())
        throw SYCliError(SYCliError::StoreFailed, file + ": " + reports.back().message);
}

std::string naming(const std::string& message, const std::string& file) {
    return message.find(file) != std::string::npos ? message : file + ": " + message;
}

SYInventoryGenerator::Options profileOptions(const Args& args) {
    if (args.profile == "realistic")
        return SYInventoryGenerator::RealisticOptions(args.clients, args.seed);
    SYInventoryGenerator::Options options = SYInventoryGenerator::DemoOptions();
    options.clients = args.clients;
    options.seed = args.seed;
    return options;
}

int generate(const Args& args) {
    SYInventoryGenerator::Options options = profileOptions(args);
    if (isatty(STDERR_FILENO) != 0)
        options.progress = SYCliInventory::ShowProgress;
    if (SYInventoryGenerator::CreateIfAbsent(args.out, SYCliInventory::InstallFolder(args.out),
                                             options) == 0)
        throw SYCliError(SYCliError::StoreFailed, args.out + ": already exists");
    return 0;
}

// What parse gives when it printed the help or the version: the run is over, and done.
constexpr int kHandled = -1;

// Parses the words of one command; 0 and a chosen command, kHandled, or the exit code to
// end with.
int parse(Builder& builder, std::vector<std::string> words) {
    std::reverse(words.begin(), words.end());
    try {
        builder.App().parse(words);
    } catch (const CLI::CallForHelp&) {
        std::cout << deepest(&builder.App())->help();
        return kHandled;
    } catch (const CLI::CallForVersion&) {
        std::cout << kVersion << '\n';
        return kHandled;
    } catch (const CLI::ParseError& e) {
        return usageError(builder.App(), e.what());
    }
    return 0;
}

int runExport(Builder& outer) {
    std::vector<std::string> words = outer.ExportCommand()->remaining();
    std::string out;
    for (auto it = words.begin(); it != words.end();) {
        if (*it == "--out" && it + 1 != words.end()) {
            out = *(it + 1);
            it = words.erase(it, it + 2);
        } else if (it->starts_with("--out=")) {
            out = it->substr(6);
            it = words.erase(it);
        } else {
            ++it;
        }
    }
    if (out.empty())
        return usageError(outer.App(), "export: --out FILE is required");
    Builder inner;
    const int parsed = parse(inner, words);
    if (parsed != 0)
        return parsed == kHandled ? 0 : parsed;
    const Command* command = inner.Chosen();
    if (command == nullptr || !command->view)
        return usageError(outer.App(),
                          "export: \"" + (words.empty() ? "" : words.front()) + "\" is not a view");
    SYDatabase database;
    SYCliInventory::Open(database, inner.Values().db, SYDatabase::OpenMode::Read);
    const SYCliDocument document = command->run(database);
    checkReports(database.Path());
    if (outer.ExportKind() == "pdf") {
        if (document.WritePdf(out) == 0)
            throw SYCliError(SYCliError::StoreFailed, out + ": cannot be written as PDF");
        return 0;
    }
    writeFile(out,
              [&](std::ostream& stream) { document.Write(stream, SYCliDocument::Format::Csv); });
    return 0;
}

int runChosen(Builder& builder) {
    if (builder.ExportCommand()->parsed())
        return runExport(builder);
    if (builder.GenerateCommand()->parsed())
        return generate(builder.Values());
    const Command* command = builder.Chosen();
    if (command == nullptr)
        return usageError(builder.App(), "no command given");
    SYDatabase database;
    SYCliInventory::Open(database, builder.Values().db,
                         command->view ? SYDatabase::OpenMode::Read : SYDatabase::OpenMode::Write);
    const SYCliDocument document = command->run(database);
    checkReports(database.Path());
    if (!document.Fields().empty() || !document.Tables().empty())
        document.Write(std::cout, formatOf(builder.Values().format));
    return 0;
}

} // namespace

bool SYCommandLine::Wants(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--db" && i + 1 < argc)
            ++i;
        else if (word != "--summary" && word != "--create" && word != "--check")
            return true;
    }
    return false;
}

int SYCommandLine::Run(int argc, char** argv) {
    Builder builder;
    std::vector<std::string> words(argv + 1, argv + argc);
    std::string file;
    try {
        const int parsed = parse(builder, words);
        if (parsed != 0)
            return parsed == kHandled ? 0 : parsed;
        file = builder.Values().db.empty() ? SYCliInventory::DefaultPath() : builder.Values().db;
        return runChosen(builder);
    } catch (const SYCliError& e) {
        if (e.Code() == SYCliError::BadUsage)
            return usageError(builder.App(), e.what());
        std::cerr << "trellisview: " << e.what() << '\n';
        return e.Code();
    } catch (const CException& e) {
        std::cerr << "trellisview: " << naming(e.ErrorMessage(), file) << '\n';
    } catch (const SYStatus& status) {
        std::cerr << "trellisview: " << naming(status.Message(), file) << '\n';
    } catch (const std::exception& e) {
        std::cerr << "trellisview: " << naming(e.what(), file) << '\n';
    }
    return SYCliError::StoreFailed;
}
