// Folder and file lists.
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>

#include "basis/failure.h"
#include "basis/paths.h"
#include "desktop/bind_kinds.h"
#include "desktop/entry_list.h"
#include "desktop/shown_state.h"
#include "desktop/shown_text.h"
#include "forms/acts.h"

namespace crownlab {
namespace {

/// A line of a folder list.
struct FolderEntry {
    std::string Path;
    std::string Name;
    int Depth = 0;
    friend bool operator==(const FolderEntry&, const FolderEntry&) = default;
};

/// The folder's ancestors from the root, the folder itself, and the folders in it, each one step further in.
struct FolderTree {
    std::vector<FolderEntry> Entries;
    int Current = 0;  ///< index of the folder itself
    friend bool operator==(const FolderTree&, const FolderTree&) = default;
};

FolderTree TreeAt(const std::string& path) {
    FolderTree tree;
    std::size_t start = path.find(kPathSeparator);
    std::string reached = path.substr(0, start + 1);
    tree.Entries.push_back({reached, reached, 0});
    while (start != std::string::npos && start + 1 < path.size()) {
        const std::size_t end = path.find(kPathSeparator, start + 1);
        const std::string name = path.substr(start + 1, end == std::string::npos ? end : end - start - 1);
        reached = JoinPath(reached, name);
        tree.Entries.push_back({reached, name, static_cast<int>(tree.Entries.size())});
        start = end;
    }
    tree.Current = static_cast<int>(tree.Entries.size()) - 1;
    try {
        for (const std::string& name : ListFolders(path)) {
            tree.Entries.push_back({JoinPath(path, name), name, tree.Current + 1});
        }
    } catch (const Failure&) {
        // A folder that can't be looked into is shown without what lies in it.
    }
    return tree;
}

void ShowTree(const FolderTree& tree, EntryList& widget) {
    const QIcon open = widget.style()->standardIcon(QStyle::SP_DirOpenIcon);
    const QIcon closed = widget.style()->standardIcon(QStyle::SP_DirIcon);
    const QSignalBlocker blocker(widget);
    widget.clear();
    for (int i = 0; i < static_cast<int>(tree.Entries.size()); ++i) {
        const FolderEntry& entry = tree.Entries[static_cast<std::size_t>(i)];
        const QString indent(qsizetype{2} * entry.Depth, ' ');
        widget.addItem(new QListWidgetItem(i <= tree.Current ? open : closed, indent + ShownText(entry.Name)));
    }
    widget.setCurrentRow(tree.Current);
    widget.scrollToItem(widget.item(tree.Current));
}

void ShowFiles(const FileList& files, EntryList& widget) {
    const QSignalBlocker blocker(widget);
    widget.clear();
    for (const std::string& name : files.Entries) widget.addItem(ShownText(name));
    const auto selected = std::find(files.Entries.begin(), files.Entries.end(), files.FileName);
    widget.setCurrentRow(selected == files.Entries.end() ? -1 : static_cast<int>(selected - files.Entries.begin()));
}

}  // namespace

CopyRecord Bind(FormWindow& window, DirList& folders, EntryList& widget) {
    const auto shown = MakeState<std::string, int, std::uint64_t, bool, bool>();
    const auto tree = std::make_shared<FolderTree>();
    widget.OnTaken = [shown, tree, &window, &folders](int row) {
        shown->Forget();
        const std::string path = tree->Entries.at(static_cast<std::size_t>(row)).Path;
        window.Act(folders, "Change", [&folders, path] { SetPath(folders, path); });
    };
    return [shown, tree, &window, &folders, &widget] {
        if (!shown->Differs(folders.Path, window.ListGeneration(), folders.ReadCount, folders.Enabled,
                            folders.Visible)) {
            return;
        }
        // What a person marked stays marked if nothing has changed on the disk.
        const FolderTree now = TreeAt(folders.Path);
        if (now != *tree) ShowTree(now, widget);
        *tree = now;
        widget.setEnabled(folders.Enabled);
        widget.setVisible(folders.Visible);
    };
}

CopyRecord Bind(FormWindow& window, FileList& files, EntryList& widget) {
    const auto shown = MakeState<std::vector<std::string>, std::string, bool, bool>();
    widget.OnChosen = [shown, &window, &files](int row) {
        shown->Forget();
        if (row >= static_cast<int>(files.Entries.size())) return;
        const std::string name = files.Entries[static_cast<std::size_t>(row)];
        window.Act(files, "Click", [&files, name] { SelectEntry(files, name); });
    };
    widget.OnTaken = [&window, &files](int) { window.Act(files, "DblClick", [&files] { DoubleClick(files); }); };
    return [shown, &files, &widget] {
        if (!shown->Differs(files.Entries, files.FileName, files.Enabled, files.Visible)) return;
        ShowFiles(files, widget);
        widget.setEnabled(files.Enabled);
        widget.setVisible(files.Visible);
    };
}

}  // namespace crownlab
