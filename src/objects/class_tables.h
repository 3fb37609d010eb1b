// The interchange form of every class. An attribute's row gives its BER tag, its keyword in the
// textual notation and its field; rows are in the order in which the notation is written.
#pragma once

#include <array>
#include <cstdint>
#include <tuple>
#include <type_traits>

#include "objects/description.h"
#include "objects/group.h"
#include "objects/ingredients.h"
#include "objects/visibles.h"
#include "objects/vocabulary.h"

namespace korvel {

inline constexpr Form kRequired{.isRequired = true};
inline constexpr Form kOriginalValue{.isRequired = true, .isChoice = true};

// ---- Structures encoded as a SEQUENCE ----

template <> struct SequenceDescription<BoxSize> {
  static constexpr auto elements = ByPlace(&BoxSize::Width, &BoxSize::Height);
};
template <> struct SequenceDescription<Position> {
  static constexpr auto elements = ByPlace(&Position::X, &Position::Y);
};
template <> struct SequenceDescription<StandardIdentifier> {
  static constexpr auto elements = ByPlace(&StandardIdentifier::JointIsoItuIdentifier,
                                           &StandardIdentifier::MHEGStandardIdentifier);
};
template <> struct SequenceDescription<SceneCoordinateSystem> {
  static constexpr auto elements =
      ByPlace(&SceneCoordinateSystem::Width, &SceneCoordinateSystem::Height);
};
template <> struct SequenceDescription<AspectRatio> {
  static constexpr auto elements = ByPlace(&AspectRatio::Width, &AspectRatio::Height);
};
template <> struct SequenceDescription<NextScene> {
  static constexpr auto elements = ByPlace(&NextScene::SceneReference, &NextScene::Weight);
};
template <> struct SequenceDescription<LinkCondition> {
  static constexpr auto elements =
      std::tuple{Element{":EventSource", &LinkCondition::EventSource,
                         Form{.name = "EventSource", .isRequired = true}},
                 Element{":EventType", &LinkCondition::EventType, kRequired},
                 Element{":EventData", &LinkCondition::EventData}};
};
template <> struct SequenceDescription<TokenGroupItem> {
  static constexpr auto elements = std::tuple{
      Element{nullptr, &TokenGroupItem::AVisible, Form{.name = "AVisible", .isRequired = true}},
      Element{":ActionSlots", &TokenGroupItem::ActionSlots}};
};

// ---- Groups ----

template <> struct Description<Group> : Extends<> {
  static constexpr auto attributes =
      std::tuple{Attribute{2, ":StdID", &Group::Standard},
                 Attribute{3, ":StdVersion", &Group::StandardVersion},
                 Attribute{4, ":ObjectInfo", &Group::ObjectInformation},
                 Attribute{5, ":OnStartUp", &Group::OnStartUp},
                 Attribute{6, ":OnCloseDown", &Group::OnCloseDown},
                 Attribute{7, ":OrigGCPriority", &Group::OriginalGroupCachePriority},
                 Attribute{8, ":Items", &Group::Items}};
};

template <> struct Description<DefaultAttributes> : Extends<> {
  static constexpr auto attributes = std::tuple{
      Attribute{38, ":CharacterSet", &DefaultAttributes::CharacterSet},
      Attribute{39, ":BackgroundColour", &DefaultAttributes::BackgroundColour},
      Attribute{40, ":TextCHook", &DefaultAttributes::TextContentHook},
      Attribute{41, ":TextColour", &DefaultAttributes::TextColour},
      Attribute{42, ":Font", &DefaultAttributes::Font, Form{.name = "Font"}},
      Attribute{43, ":FontAttributes", &DefaultAttributes::FontAttributes},
      Attribute{44, ":InterchgPrgCHook", &DefaultAttributes::InterchangedProgramContentHook},
      Attribute{45, ":StreamCHook", &DefaultAttributes::StreamContentHook},
      Attribute{46, ":BitmapCHook", &DefaultAttributes::BitmapContentHook},
      Attribute{47, ":LineArtCHook", &DefaultAttributes::LineArtContentHook},
      Attribute{48, ":ButtonRefColour", &DefaultAttributes::ButtonRefColour},
      Attribute{49, ":HighlightRefColour", &DefaultAttributes::HighlightRefColour},
      Attribute{50, ":SliderRefColour", &DefaultAttributes::SliderRefColour}};
};

// BER nests the default attributes under one tag; the textual notation writes them like the
// application's other attributes.
template <> struct Description<Application> : Extends<Group> {
  static constexpr ClassHeading heading{ItemType::Application, 0, "Application", ":Application"};
  static constexpr auto attributes =
      std::tuple{Attribute{35, ":OnSpawnCloseDown", &Application::OnSpawnCloseDown},
                 Attribute{36, ":OnRestart", &Application::OnRestart},
                 Attribute{37, nullptr, &Application::Defaults}};
};

template <> struct Description<Scene> : Extends<Group> {
  static constexpr ClassHeading heading{ItemType::Scene, 1, "Scene", ":Scene"};
  static constexpr auto attributes = std::tuple{
      Attribute{51, ":InputEventReg", &Scene::InputEventReg},
      Attribute{52, ":SceneCS", &Scene::SceneCS}, Attribute{53, ":AspectRatio", &Scene::Aspect},
      Attribute{54, ":MovingCursor", &Scene::MovingCursor},
      Attribute{55, ":NextScenes", &Scene::NextScenes}};
};

// ---- Invisible ingredients ----

inline constexpr std::uint32_t kContentHookTag = 57;
inline constexpr std::uint32_t kOriginalContentTag = 58;
inline constexpr std::uint32_t kSharedTag = 59;
inline constexpr std::uint32_t kOriginalPaletteRefTag = 78;

// The attributes of an ingredient that a class without content does not have.
inline constexpr std::array kContentTags = {kContentHookTag, kOriginalContentTag};

template <> struct Description<Ingredient> : Extends<> {
  static constexpr auto attributes =
      std::tuple{Attribute{56, ":InitiallyActive", &Ingredient::InitiallyActive},
                 Attribute{kContentHookTag, ":CHook", &Ingredient::ContentHOOK},
                 Attribute{kOriginalContentTag, ":OrigContent", &Ingredient::OriginalContent},
                 Attribute{kSharedTag, ":Shared", &Ingredient::Shared}};
};

template <> struct Description<Link> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::Link, 20, "Link", ":Link"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{62, nullptr, &Link::Condition, kRequired},
                 Attribute{63, ":LinkEffect", &Link::LinkEffect, kRequired}};
};

template <> struct Description<Program> : Extends<Ingredient> {
  static constexpr auto attributes =
      std::tuple{Attribute{64, ":Name", &Program::Name, kRequired},
                 Attribute{65, ":InitiallyAvailable", &Program::InitiallyAvailable}};
};
template <> struct Description<ResidentProgram> : Extends<Program> {
  static constexpr ClassHeading heading{ItemType::ResidentProgram, 9, "ResidentProgram",
                                        ":ResidentPrg"};
  static constexpr auto omitted = kContentTags;
};
template <> struct Description<RemoteProgram> : Extends<Program> {
  static constexpr ClassHeading heading{ItemType::RemoteProgram, 10, "RemoteProgram", ":RemotePrg"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{66, ":ConnectionTag", &RemoteProgram::ProgramConnectionTag}};
};
template <> struct Description<InterchangedProgram> : Extends<Program> {
  static constexpr ClassHeading heading{ItemType::InterchangedProgram, 11, "InterchangedProgram",
                                        ":InterchgPrg"};
};

template <> struct Description<Palette> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::Palette, 12, "Palette", ":Palette"};
};
template <> struct Description<Font> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::Font, 13, "Font", ":Font"};
};
template <> struct Description<CursorShape> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::CursorShape, 14, "CursorShape", ":CursorShape"};
};

template <> struct Description<BooleanVariable> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::BooleanVariable, 15, "BooleanVariable",
                                        ":BooleanVar"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{67, ":OrigValue", &BooleanVariable::OriginalValue, kOriginalValue}};
};
template <> struct Description<IntegerVariable> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::IntegerVariable, 16, "IntegerVariable",
                                        ":IntegerVar"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{67, ":OrigValue", &IntegerVariable::OriginalValue, kOriginalValue}};
};
template <> struct Description<OctetStringVariable> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::OctetStringVariable, 17, "OctetStringVariable",
                                        ":OStringVar"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{67, ":OrigValue", &OctetStringVariable::OriginalValue, kOriginalValue}};
};
template <> struct Description<ObjectRefVariable> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::ObjectRefVariable, 18, "ObjectRefVariable",
                                        ":ObjectRefVar"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes = std::tuple{Attribute{
      67, ":OrigValue", &ObjectRefVariable::OriginalValue,
      Form{.innerTag = 68, .innerKeyword = ":ObjectRef", .name = "Value", .isRequired = true}}};
};
template <> struct Description<ContentRefVariable> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::ContentRefVariable, 19, "ContentRefVariable",
                                        ":ContentRefVar"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes = std::tuple{
      Attribute{67, ":OrigValue", &ContentRefVariable::OriginalValue,
                Form{.innerTag = 69, .innerKeyword = ":ContentRef", .isRequired = true}}};
};

template <> struct Description<TokenGroup> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::TokenGroup, 33, "TokenGroup", ":TokenGroup"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{70, ":MovementTable", &TokenGroup::MovementTable},
                 Attribute{71, ":TokenGroupItems", &TokenGroup::TokenGroupItems, kRequired},
                 Attribute{72, ":NoTokenActionSlots", &TokenGroup::NoTokenActionSlots}};
};
template <> struct Description<ListGroup> : Extends<TokenGroup> {
  static constexpr ClassHeading heading{ItemType::ListGroup, 34, "ListGroup", ":ListGroup"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{73, ":Positions", &ListGroup::Positions},
                 Attribute{74, ":WrapAround", &ListGroup::WrapAround},
                 Attribute{75, ":MultipleSelection", &ListGroup::MultipleSelection}};
};

// ---- Visibles ----

template <> struct Description<Visible> : Extends<Ingredient> {
  static constexpr auto attributes =
      std::tuple{Attribute{76, ":OrigBoxSize", &Visible::OriginalBoxSize, kRequired},
                 Attribute{77, ":OrigPosition", &Visible::OriginalPosition},
                 Attribute{kOriginalPaletteRefTag, ":OrigPaletteRef", &Visible::OriginalPaletteRef,
                           Form{.name = "PaletteRef"}}};
};

template <> struct Description<Bitmap> : Extends<Visible> {
  static constexpr ClassHeading heading{ItemType::Bitmap, 22, "Bitmap", ":Bitmap"};
  static constexpr auto attributes =
      std::tuple{Attribute{79, ":Tiling", &Bitmap::Tiling},
                 Attribute{80, ":OrigTransparency", &Bitmap::OriginalTransparency}};
};

template <> struct Description<LineArt> : Extends<Visible> {
  static constexpr ClassHeading heading{ItemType::LineArt, 23, "LineArt", ":LineArt"};
  static constexpr auto attributes =
      std::tuple{Attribute{81, ":BBBox", &LineArt::BorderedBoundingBox},
                 Attribute{82, ":OrigLineWidth", &LineArt::OriginalLineWidth},
                 Attribute{83, ":OrigLineStyle", &LineArt::OriginalLineStyle},
                 Attribute{84, ":OrigRefLineColour", &LineArt::OriginalRefLineColour},
                 Attribute{85, ":OrigRefFillColour", &LineArt::OriginalRefFillColour}};
};
template <> struct Description<DynamicLineArt> : Extends<LineArt> {
  static constexpr ClassHeading heading{ItemType::DynamicLineArt, 24, "DynamicLineArt",
                                        ":DynamicLineArt"};
};
template <> struct Description<Rectangle> : Extends<LineArt> {
  static constexpr ClassHeading heading{ItemType::Rectangle, 25, "Rectangle", ":Rectangle"};
};

template <> struct Description<Interactible> : Extends<> {
  static constexpr auto attributes =
      std::tuple{Attribute{101, ":EngineResp", &Interactible::EngineResp},
                 Attribute{49, ":HighlightRefColour", &Interactible::HighlightRefColour}};
};

template <> struct Description<Text> : Extends<Visible> {
  static constexpr ClassHeading heading{ItemType::Text, 29, "Text", ":Text"};
  static constexpr auto attributes =
      std::tuple{Attribute{86, ":OrigFont", &Text::OriginalFont, Form{.name = "Font"}},
                 Attribute{43, ":FontAttributes", &Text::FontAttributes},
                 Attribute{41, ":TextColour", &Text::TextColour},
                 Attribute{39, ":BackgroundColour", &Text::BackgroundColour},
                 Attribute{38, ":CharacterSet", &Text::CharacterSet},
                 Attribute{87, ":HJustification", &Text::HorizontalJustification},
                 Attribute{88, ":VJustification", &Text::VerticalJustification},
                 Attribute{89, ":LineOrientation", &Text::LineOrientation},
                 Attribute{90, ":StartCorner", &Text::StartCorner},
                 Attribute{91, ":TextWrapping", &Text::TextWrapping}};
};
template <> struct Description<EntryField> : Extends<Text, Interactible> {
  static constexpr ClassHeading heading{ItemType::EntryField, 30, "EntryField", ":EntryField"};
  static constexpr auto attributes =
      std::tuple{Attribute{109, ":InputType", &EntryField::InputType},
                 Attribute{110, ":CharList", &EntryField::CharList},
                 Attribute{111, ":ObscuredInput", &EntryField::ObsuredInput},
                 Attribute{112, ":MaxLength", &EntryField::MaxLength}};
};
template <> struct Description<HyperText> : Extends<Text, Interactible> {
  static constexpr ClassHeading heading{ItemType::HyperText, 31, "HyperText", ":HyperText"};
};

template <> struct Description<Button> : Extends<Visible, Interactible> {
  static constexpr auto attributes =
      std::tuple{Attribute{48, ":ButtonRefColour", &Button::ButtonRefColour}};
};
template <> struct Description<HotSpot> : Extends<Button> {
  static constexpr ClassHeading heading{ItemType::HotSpot, 26, "HotSpot", ":HotSpot"};
  static constexpr auto omitted = kContentTags;
};
template <> struct Description<PushButton> : Extends<Button> {
  static constexpr ClassHeading heading{ItemType::PushButton, 28, "PushButton", ":PushButton"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{113, ":OrigLabel", &PushButton::OriginalLabel},
                 Attribute{38, ":CharacterSet", &PushButton::CharacterSet}};
};
template <> struct Description<SwitchButton> : Extends<PushButton> {
  static constexpr ClassHeading heading{ItemType::SwitchButton, 27, "SwitchButton",
                                        ":SwitchButton"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{114, ":ButtonStyle", &SwitchButton::ButtonStyle}};
};

template <> struct Description<Slider> : Extends<Visible, Interactible> {
  static constexpr ClassHeading heading{ItemType::Slider, 32, "Slider", ":Slider"};
  static constexpr auto omitted = kContentTags;
  static constexpr auto attributes =
      std::tuple{Attribute{102, ":Orientation", &Slider::Orientation},
                 Attribute{103, ":MaxValue", &Slider::MaxValue},
                 Attribute{104, ":MinValue", &Slider::MinValue},
                 Attribute{105, ":InitialValue", &Slider::InitialValue},
                 Attribute{106, ":InitialPortion", &Slider::InitialPortion},
                 Attribute{107, ":StepSize", &Slider::StepSize},
                 Attribute{108, ":SliderStyle", &Slider::SliderStyle},
                 Attribute{50, ":SliderRefColour", &Slider::SliderRefColour}};
};

// ---- Streams ----

template <> struct Description<Stream> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::Stream, 21, "Stream", ":Stream"};
  static constexpr auto attributes = std::tuple{
      Attribute{92, ":Multiplex", &Stream::Multiplex, kRequired},
      Attribute{93, ":Storage", &Stream::Storage}, Attribute{94, ":Looping", &Stream::Looping}};
};
template <> struct Description<Audio> : Extends<Ingredient> {
  static constexpr ClassHeading heading{ItemType::Audio, 95, "Audio", ":Audio"};
  static constexpr std::array omitted = {kContentHookTag, kOriginalContentTag, kSharedTag};
  static constexpr auto attributes =
      std::tuple{Attribute{98, ":ComponentTag", &Audio::ComponentTag, kRequired},
                 Attribute{99, ":OrigVolume", &Audio::OriginalVolume}};
};
template <> struct Description<Video> : Extends<Visible> {
  static constexpr ClassHeading heading{ItemType::Video, 96, "Video", ":Video"};
  static constexpr std::array omitted = {kContentHookTag, kOriginalContentTag, kSharedTag,
                                         kOriginalPaletteRefTag};
  static constexpr auto attributes =
      std::tuple{Attribute{98, ":ComponentTag", &Video::ComponentTag, kRequired},
                 Attribute{100, ":Termination", &Video::Termination}};
};
template <> struct Description<RTGraphics> : Extends<Visible> {
  static constexpr ClassHeading heading{ItemType::RTGraphics, 97, "RTGraphics", ":RTGraphics"};
  static constexpr std::array omitted = {kContentHookTag, kOriginalContentTag, kSharedTag};
  static constexpr auto attributes =
      std::tuple{Attribute{98, ":ComponentTag", &RTGraphics::ComponentTag, kRequired},
                 Attribute{100, ":Termination", &RTGraphics::Termination}};
};

// ---- Passes ----

// Calls visit(keyword, form, fields...) for every attribute of the textual notation, parents first.
// `fields` are its values in each of `records`. Attributes that BER nests in a structure without a
// keyword (the default attributes, a link's condition) are visited too.
template <class Record, class Visit, class... Records>
void ForEachWrittenAttribute(Visit&& visit, Records&... records) {
  ForEachAttribute<Record>([&](const auto& attribute) {
    using Field = std::remove_cvref_t<decltype(std::declval<Record&>().*attribute.field)>;
    if constexpr (IsDescribed<Field>) {
      ForEachWrittenAttribute<Field>(visit, records.*attribute.field...);
    } else if constexpr (std::is_same_v<Field, LinkCondition>) {
      ForEachElement<Field>([&](const auto& element) {
        visit(element.keyword, element.form, (records.*attribute.field).*element.field...);
      });
    } else {
      visit(attribute.keyword, attribute.form, records.*attribute.field...);
    }
  });
}

// The classes of a group's items, and those of a stream's components.

using ItemClasses =
    Classes<ResidentProgram, RemoteProgram, InterchangedProgram, Palette, Font, CursorShape,
            BooleanVariable, IntegerVariable, OctetStringVariable, ObjectRefVariable,
            ContentRefVariable, Link, Stream, Bitmap, LineArt, DynamicLineArt, Rectangle, HotSpot,
            SwitchButton, PushButton, Text, EntryField, HyperText, Slider, TokenGroup, ListGroup>;

using ComponentClasses = Classes<Audio, Video, RTGraphics>;

// The classes that may be in the object list of a group or a stream.
template <class Record>
using MemberClasses =
    std::conditional_t<std::is_base_of_v<Group, Record>, ItemClasses, ComponentClasses>;

// Calls visit with the group as a record of its own class and returns its result.
template <class AnyGroup, class Visit> auto VisitGroup(AnyGroup& group, Visit&& visit) {
  using AnyApplication =
      std::conditional_t<std::is_const_v<AnyGroup>, const Application, Application>;
  using AnyScene = std::conditional_t<std::is_const_v<AnyGroup>, const Scene, Scene>;
  return group.type == ItemType::Application ? visit(static_cast<AnyApplication&>(group))
                                             : visit(static_cast<AnyScene&>(group));
}

// Calls visit.template operator()<Record>() for the ingredient class with that number. False if
// there is none.
template <class Visit> constexpr bool VisitIngredientClass(ItemType type, Visit&& visit) {
  bool isFound = false;
  auto choose = [&]<class Record>() {
    if (Description<Record>::heading.type != type) return;
    isFound = true;
    visit.template operator()<Record>();
  };
  ForEachClass(ItemClasses{}, choose);
  ForEachClass(ComponentClasses{}, choose);
  return isFound;
}

}  // namespace korvel
