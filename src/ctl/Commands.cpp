#include "ctl/Command.h"
#include "ctl/SmartRulesJson.h"

#include <algorithm>

namespace mosaro::ctl {

const std::vector<Command>& commands()
{
    static const std::vector<Command> kCommands{
        {"create", "PATH", 1, 1, "Hint.Ctl.Create", {}, create},
        {"import",
         "FILE...",
         1,
         -1,
         "Hint.Ctl.Import",
         {{"collection", "TITLE", "Hint.Ctl.Import.Collection"},
          {"reference", nullptr, "Hint.Ctl.Import.Reference"},
          {"kind", "N", "Hint.Ctl.Import.Kind"}},
         importFiles},
        {"list",
         "",
         0,
         0,
         "Hint.Ctl.List",
         {{"collection", "TITLE", "Hint.Ctl.List.Collection"},
          {"tag", "TITLE", "Hint.Ctl.List.Tag"},
          {"color", "HEX", "Hint.Ctl.List.Color"},
          {"kind", "N", "Hint.Ctl.List.Kind"},
          {"smart", "TITLE", "Hint.Ctl.List.Smart"},
          {"recent", nullptr, "Hint.Ctl.List.Recent"},
          {"sort", "KEY", "Hint.Ctl.List.Sort"},
          {"descending", nullptr, "Hint.Ctl.List.Descending"}},
         list},
        {"show", "MEDIAID", 1, 1, "Hint.Ctl.Show", {}, show},
        {"search",
         "TEXT",
         1,
         1,
         "Hint.Ctl.Search",
         {{"in", "FIELD", "Hint.Ctl.Search.In"}, {"collection", "TITLE", "Hint.Ctl.List.Collection"}},
         search},
        {"collections", "", 0, 0, "Hint.Ctl.Collections", {}, collections},
        {"tags", "", 0, 0, "Hint.Ctl.Tags", {}, tags},
        {"colors", "", 0, 0, "Hint.Ctl.Colors", {}, colors},
        {"tag",
         "add|remove TITLE MEDIAID...",
         2,
         -1,
         "Hint.Ctl.Tag",
         {{"collection", "TITLE", "Hint.Ctl.Tag.Collection"}},
         tag},
        {"smart",
         "add TITLE",
         2,
         2,
         "Hint.Ctl.Smart",
         {{"rules", "JSON", "Hint.Ctl.Smart.Rules"},
          {"all", nullptr, "Hint.Ctl.Smart.All"},
          {"any", nullptr, "Hint.Ctl.Smart.Any"}},
         smart,
         smartRulesHelp},
        {"collection",
         "add|rename|delete ...",
         2,
         -1,
         "Hint.Ctl.Collection",
         {{"folder", nullptr, "Hint.Ctl.Collection.Folder"}, {"in", "FOLDER", "Hint.Ctl.Collection.In"}},
         collection},
        {"move", "MEDIAID...", 1, -1, "Hint.Ctl.Move", {{"to", "COLLECTION", "Hint.Ctl.Move.To"}}, move},
        {"rate", "N MEDIAID...", 2, -1, "Hint.Ctl.Rate", {}, rate},
        {"label", "LABEL MEDIAID...", 2, -1, "Hint.Ctl.Label", {}, label},
        {"verify", "", 0, 0, "Hint.Ctl.Verify", {{"repair", nullptr, "Hint.Ctl.Verify.Repair"}}, verify},
    };
    return kCommands;
}

const Command* findCommand(const QString& name)
{
    const auto& all = commands();
    const auto found = std::find_if(all.begin(), all.end(), [&name](const Command& command) {
        return name == QLatin1String(command.name);
    });
    return found == all.end() ? nullptr : &*found;
}

} // namespace mosaro::ctl
