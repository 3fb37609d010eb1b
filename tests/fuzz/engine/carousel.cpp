// Makes carousels, and changes groups as records: attributes, entries of lists, actions and items.
#include "carousel.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

#include "objects/ber/ber.h"
#include "support/group_maker.h"
#include "textual/textual.h"

namespace korvel::test {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

// Larger content files are omitted, because without a presentation the engine only copies them.
constexpr std::uintmax_t kMostFileBytes = 4096;

// The demos, and a carousel that calls the resident programs: all have more actions than pictures.
std::vector<Files> demos;
std::vector<Files> scenarios;

std::string Encode(const Group& group) {
  OctetString bytes;
  if (EncodeGroup(group, bytes) != Status::Done) std::abort();
  return std::string(bytes.View());
}

OwnedGroup Decode(const std::string& bytes) {
  OwnedGroup group;
  const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
  if (DecodeGroup({first, bytes.size()}, group) != Status::Done) group.reset();
  return group;
}

Files Compile(const fs::path& folder) {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file() || entry.file_size() > kMostFileBytes * 8) continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    fs::path name = entry.path().lexically_relative(folder);
    if (name.extension() == ".mheg") {
      bytes = CompileGroup(bytes);
      name.replace_extension();
    } else if (bytes.size() > kMostFileBytes) {
      continue;
    }
    files[name.generic_string()] = bytes;
  }
  return files;
}

// Changes one part of a group.
class GroupChanger {
 public:
  GroupChanger(Choices& choices, GroupMaker<Choices>& maker) : choices_(choices), maker_(maker) {}

  void ChangeGroup(Group& group) {
    if (choices_.Below(4) != 0) return ChangeItems(ItemClasses{}, group.Items);
    VisitGroup(group, [this](auto& record) { ChangeAttribute(record); });
  }

 private:
  template <class Record> void ChangeAttribute(Record& record) {
    std::uint32_t count = 0;
    ForEachAttribute<Record>([&](const auto& /*attribute*/) { ++count; });
    std::uint32_t remaining = choices_.Below(count);
    ForEachAttribute<Record>([&](const auto& attribute) {
      if (remaining-- == 0) ChangeField<Record>(record.*attribute.field);
    });
  }

  template <class Record, class Field> void ChangeField(Field& field) {
    if constexpr (IsDescribed<Field>) {
      ChangeAttribute(field);
    } else if constexpr (std::is_same_v<Field, List<Item>>) {
      ChangeItems(MemberClasses<Record>{}, field);
    } else {
      Change(field);
    }
  }

  template <class... Records> void ChangeItems(Classes<Records...> classes, List<Item>& items) {
    const std::uint32_t kind = choices_.Below(8);
    if (items.IsEmpty() || kind == 0) {
      std::uint32_t remaining = choices_.Below(sizeof...(Records));
      return ForEachClass(classes, [&]<class Record>() {
        if (remaining-- == 0) maker_.Add(items, maker_.template MakeItem<Record>());
      });
    }
    Item& item = OneOf(items);
    if (kind == 1) return RemoveFrom(items, item);
    VisitIngredientClass(item.Type(), [&]<class Record>() { ChangeAttribute(item.As<Record>()); });
  }

  template <class Field> void Change(Field& field) { maker_.Fill(field); }
  void Change(Movement& movement) { Change(movement.Targets); }
  template <IsSequence Record> void Change(Record& record) {
    ForEachElement<Record>([&](const auto& element) {
      if (choices_.Below(2) == 0) Change(record.*element.field);
    });
  }
  void Change(ElementaryAction& action) {
    const bool isSameAction = choices_.Below(2) == 0 && FindAction(action.ActionType) != nullptr;
    action = maker_.MakeAction(isSameAction ? ChosenAction{action.ActionType}
                                            : choices_.Actions().front());
  }
  template <class T> void Change(List<T>& list) {
    const std::uint32_t kind = choices_.Below(4);
    if (list.IsEmpty() || kind == 0) {
      maker_.Add(list, T{});
      return Change(*list.Last());
    }
    T& entry = OneOf(list);
    if (kind == 1) return RemoveFrom(list, entry);
    Change(entry);
  }

  template <class T> T& OneOf(List<T>& list) { return list[choices_.Below(256) % list.Size()]; }
  template <class T> static void RemoveFrom(List<T>& list, const T& entry) {
    list.RemoveFirst([&entry](const T& other) { return &other == &entry; });
  }

  Choices& choices_;
  GroupMaker<Choices>& maker_;
};

void AddItems(const List<Item>& items, const std::string& groupName, Choices& choices) {
  for (const Item& item : items) {
    choices.known.push_back({item.Type(), {groupName, item.Record()->Reference.Number}});
    if (item.Type() == ItemType::Stream) AddItems(item.As<Stream>().Multiplex, groupName, choices);
  }
}

// Adds an object of each class, under the number that most items of the class get.
void AddAllClasses(const std::string& groupName, Choices& choices) {
  const auto add = [&]<class Record>() {
    constexpr ItemType type = Description<Record>::heading.type;
    choices.known.push_back({type, {groupName, static_cast<std::int32_t>(type)}});
  };
  ForEachClass(ItemClasses{}, add);
  ForEachClass(ComponentClasses{}, add);
}

Files ChangeSeed(const Files& seed, Choices& choices) {
  GroupMaker<Choices> maker(choices);
  std::vector<std::pair<std::string, OwnedGroup>> groups;
  Files files = seed;
  for (const auto& [name, bytes] : seed) {
    OwnedGroup group = Decode(bytes);
    if (!group) continue;
    AddKnown(*group, choices);
    groups.emplace_back(name, std::move(group));
  }
  for (std::uint32_t changes = choices.Below(16); changes > 0 && !groups.empty(); --changes) {
    auto& [name, group] = groups[choices.Below(256) % groups.size()];
    choices.groupName = std::string(group->Reference.GroupIdentifier.View());
    GroupChanger(choices, maker).ChangeGroup(*group);
    files[name] = Encode(*group);
  }
  return files;
}

Files Generate(Choices& choices) {
  struct NamedGroup {
    const char* file;
    ItemType type;
  };
  constexpr std::array<NamedGroup, 4> kGroupFiles = {{{"a", ItemType::Application},
                                                      {"s", ItemType::Scene},
                                                      {"t", ItemType::Scene},
                                                      {"b", ItemType::Application}}};
  GroupMaker<Choices> maker(choices);
  Files files;
  for (const NamedGroup& named : kGroupFiles) {
    choices.groupName = std::string("~/") + named.file;
    choices.known.clear();
    for (const NamedGroup& other : kGroupFiles) {
      choices.known.push_back({other.type, {std::string("~/") + other.file, 0}});
    }
    AddAllClasses(choices.groupName, choices);
    if (named.type == ItemType::Scene) AddAllClasses("~/a", choices);
    const OwnedGroup group = maker.Make(named.type);
    if (group->Items.IsEmpty()) maker.FillItems(ItemClasses{}, group->Items);
    files[named.file] = Encode(*group);
  }
  files["text"] = "line 1\nline 2";
  return files;
}

// The folders in `parent` that have a file or folder of this name. Inputs choose a carousel by its
// index, so the order is the same on every machine.
std::vector<fs::path> FoldersWith(const char* name, const fs::path& parent) {
  std::vector<fs::path> folders;
  for (const auto& entry : fs::directory_iterator(parent)) {
    if (fs::exists(entry.path() / name)) folders.push_back(entry.path());
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

}  // namespace

std::string CompileGroup(std::string_view text) {
  OwnedGroup group;
  TextReport report;
  if (ReadTextGroup(text, group, report) != TextResult::Done) std::abort();
  return Encode(*group);
}

void LoadSeeds() {
  const fs::path sources = KORVEL_SOURCE_DIR;
  for (const fs::path& folder : FoldersWith("a.mheg", sources / "examples")) {
    demos.push_back(Compile(folder));
  }
  demos.push_back(Compile(sources / "tests/fuzz/seeds/engine/programs"));
  for (const fs::path& folder : FoldersWith("carousel", sources / "tests/scenarios")) {
    scenarios.push_back(Compile(folder / "carousel"));
  }
}

void AddKnown(const Group& group, Choices& choices) {
  const std::string name(group.Reference.GroupIdentifier.View());
  choices.known.push_back({group.type, {name, 0}});
  AddItems(group.Items, name, choices);
}

std::map<std::string, std::string> MakeCarousel(Choices& choices) {
  const std::uint32_t kind = choices.Below(8);
  if (kind < 4) return Generate(choices);
  const std::vector<Files>& seeds = kind < 7 ? demos : scenarios;
  return ChangeSeed(seeds[choices.Below(256) % seeds.size()], choices);
}

}  // namespace korvel::test
