// Every keyword with its code, and the keywords suggested for misspelt words.
#include "textual/keywords.h"

#include <gtest/gtest.h>

#include <string>

namespace korvel {
namespace {

struct CodedWord {
  std::uint16_t code;
  const char* word;
};

// clang-format off
constexpr CodedWord kCodedWords[] = {
    {1, ":STDID"}, {2, ":STDVERSION"}, {3, ":OBJECTINFO"}, {4, ":ONSTARTUP"}, {5, ":ONCLOSEDOWN"},
    {6, ":ORIGGCPRIORITY"}, {7, ":ITEMS"}, {8, ":APPLICATION"}, {9, ":ONSPAWNCLOSEDOWN"},
    {10, ":ONRESTART"}, {11, ":CHARACTERSET"}, {12, ":BACKGROUNDCOLOUR"}, {13, ":TEXTCHOOK"},
    {14, ":TEXTCOLOUR"}, {15, ":FONT"}, {16, ":FONTATTRIBUTES"}, {17, ":INTERCHGPRGCHOOK"},
    {18, ":STREAMCHOOK"}, {19, ":BITMAPCHOOK"}, {20, ":LINEARTCHOOK"}, {21, ":BUTTONREFCOLOUR"},
    {22, ":HIGHLIGHTREFCOLOUR"}, {23, ":SLIDERREFCOLOUR"}, {24, ":SCENE"}, {25, ":INPUTEVENTREG"},
    {26, ":SCENECS"}, {27, ":ASPECTRATIO"}, {28, ":MOVINGCURSOR"}, {29, ":NEXTSCENES"},
    {30, ":INITIALLYACTIVE"}, {31, ":CHOOK"}, {32, ":ORIGCONTENT"}, {33, ":CONTENTREF"},
    {34, ":CONTENTSIZE"}, {35, ":CCPRIORITY"}, {36, ":SHARED"}, {37, ":LINK"},
    {38, ":EVENTSOURCE"}, {39, ":EVENTTYPE"}, {40, "ISAVAILABLE"}, {41, "CONTENTAVAILABLE"},
    {42, "ISDELETED"}, {43, "ISRUNNING"}, {44, "ISSTOPPED"}, {45, "USERINPUT"},
    {46, "ANCHORFIRED"}, {47, "TIMERFIRED"}, {48, "ASYNCHSTOPPED"}, {49, "INTERACTIONCOMPLETED"},
    {50, "TOKENMOVEDFROM"}, {51, "TOKENMOVEDTO"}, {52, "STREAMEVENT"}, {53, "STREAMPLAYING"},
    {54, "STREAMSTOPPED"}, {55, "COUNTERTRIGGER"}, {56, "HIGHLIGHTON"}, {57, "HIGHLIGHTOFF"},
    {58, "CURSORENTER"}, {59, "CURSORLEAVE"}, {60, "ISSELECTED"}, {61, "ISDESELECTED"},
    {62, "TESTEVENT"}, {63, "FIRSTITEMPRESENTED"}, {64, "LASTITEMPRESENTED"}, {65, "HEADITEMS"},
    {66, "TAILITEMS"}, {67, "ITEMSELECTED"}, {68, "ITEMDESELECTED"}, {69, "ENTRYFIELDFULL"},
    {70, "ENGINEEVENT"}, {71, ":EVENTDATA"}, {72, ":LINKEFFECT"}, {73, ":NAME"},
    {74, ":INITIALLYAVAILABLE"}, {75, ":RESIDENTPRG"}, {76, ":REMOTEPRG"}, {77, ":CONNECTIONTAG"},
    {78, ":INTERCHGPRG"}, {79, ":PALETTE"}, {80, ":CURSORSHAPE"}, {81, ":ORIGVALUE"},
    {82, ":OBJECTREF"}, {83, ":BOOLEANVAR"}, {84, ":INTEGERVAR"}, {85, ":OSTRINGVAR"},
    {86, ":OBJECTREFVAR"}, {87, ":CONTENTREFVAR"}, {88, ":MOVEMENTTABLE"}, {89, ":TOKENGROUP"},
    {90, ":TOKENGROUPITEMS"}, {91, ":ACTIONSLOTS"}, {92, ":NOTOKENACTIONSLOTS"},
    {93, ":LISTGROUP"}, {94, ":POSITIONS"}, {95, ":WRAPAROUND"}, {96, ":MULTIPLESELECTION"},
    {97, ":ORIGBOXSIZE"}, {98, ":ORIGPOSITION"}, {99, ":ORIGPALETTEREF"}, {100, ":BITMAP"},
    {101, ":TILING"}, {102, ":ORIGTRANSPARENCY"}, {103, ":LINEART"}, {104, ":BBBOX"},
    {105, ":ORIGLINEWIDTH"}, {106, ":ORIGLINESTYLE"}, {107, ":ORIGREFLINECOLOUR"},
    {108, ":ORIGREFFILLCOLOUR"}, {109, ":RECTANGLE"}, {110, ":DYNAMICLINEART"}, {111, ":TEXT"},
    {112, ":ORIGFONT"}, {113, ":HJUSTIFICATION"}, {114, "START"}, {115, "END"}, {116, "CENTRE"},
    {117, "JUSTIFIED"}, {118, ":VJUSTIFICATION"}, {119, ":LINEORIENTATION"}, {120, "VERTICAL"},
    {121, "HORIZONTAL"}, {122, ":STARTCORNER"}, {123, "UPPER-LEFT"}, {124, "UPPER-RIGHT"},
    {125, "LOWER-LEFT"}, {126, "LOWER-RIGHT"}, {127, ":TEXTWRAPPING"}, {128, ":STREAM"},
    {129, ":MULTIPLEX"}, {130, ":STORAGE"}, {131, "MEMORY"}, {132, "STREAM"}, {133, ":LOOPING"},
    {134, ":AUDIO"}, {135, ":COMPONENTTAG"}, {136, ":ORIGVOLUME"}, {137, ":VIDEO"},
    {138, ":TERMINATION"}, {139, "FREEZE"}, {140, "DISAPPEAR"}, {141, ":RTGRAPHICS"},
    {142, ":ENGINERESP"}, {143, ":SLIDER"}, {144, ":ORIENTATION"}, {145, "LEFT"}, {146, "RIGHT"},
    {147, "UP"}, {148, "DOWN"}, {149, ":MAXVALUE"}, {150, ":MINVALUE"}, {151, ":INITIALVALUE"},
    {152, ":INITIALPORTION"}, {153, ":STEPSIZE"}, {154, ":SLIDERSTYLE"}, {155, "NORMAL"},
    {156, "THERMOMETER"}, {157, "PROPORTIONAL"}, {158, ":ENTRYFIELD"}, {159, ":INPUTTYPE"},
    {160, "ALPHA"}, {161, "NUMERIC"}, {162, "ANY"}, {163, "LISTED"}, {164, ":CHARLIST"},
    {165, ":OBSCUREDINPUT"}, {166, ":MAXLENGTH"}, {167, ":HYPERTEXT"}, {168, ":HOTSPOT"},
    {169, ":PUSHBUTTON"}, {170, ":ORIGLABEL"}, {171, ":SWITCHBUTTON"}, {172, ":BUTTONSTYLE"},
    {173, "PUSHBUTTON"}, {174, "RADIOBUTTON"}, {175, "CHECKBOX"}, {176, ":ACTIVATE"},
    {177, ":ADD"}, {178, ":ADDITEM"}, {179, ":APPEND"}, {180, ":BRINGTOFRONT"}, {181, ":CALL"},
    {182, ":CALLACTIONSLOT"}, {183, ":CLEAR"}, {184, ":CLONE"}, {185, ":CLOSECONNECTION"},
    {186, ":DEACTIVATE"}, {187, ":DELITEM"}, {188, ":DESELECT"}, {189, ":DESELECTITEM"},
    {190, ":DIVIDE"}, {191, ":DRAWARC"}, {192, ":DRAWLINE"}, {193, ":DRAWOVAL"},
    {194, ":DRAWPOLYGON"}, {195, ":DRAWPOLYLINE"}, {196, ":DRAWRECTANGLE"}, {197, ":DRAWSECTOR"},
    {198, ":FORK"}, {199, ":GETAVAILABILITYSTATUS"}, {200, ":GETBOXSIZE"}, {201, ":GETCELLITEM"},
    {202, ":GETCURSORPOSITION"}, {203, ":GETENGINESUPPORT"}, {204, ":GETENTRYPOINT"},
    {205, ":GETFILLCOLOUR"}, {206, ":GETFIRSTITEM"}, {207, ":GETHIGHLIGHTSTATUS"},
    {208, ":GETINTERACTIONSTATUS"}, {209, ":GETITEMSTATUS"}, {210, ":GETLABEL"},
    {211, ":GETLASTANCHORFIRED"}, {212, ":GETLINECOLOUR"}, {213, ":GETLINESTYLE"},
    {214, ":GETLINEWIDTH"}, {215, ":GETLISTITEM"}, {216, ":GETLISTSIZE"},
    {217, ":GETOVERWRITEMODE"}, {218, ":GETPORTION"}, {219, ":GETPOSITION"},
    {220, ":GETRUNNINGSTATUS"}, {221, ":GETSELECTIONSTATUS"}, {222, ":GETSLIDERVALUE"},
    {223, ":GETTEXTCONTENT"}, {224, ":GETTEXTDATA"}, {225, ":GETTOKENPOSITION"},
    {226, ":GETVOLUME"}, {227, ":LAUNCH"}, {228, ":LOCKSCREEN"}, {229, ":MODULO"}, {230, ":MOVE"},
    {231, ":MOVETO"}, {232, ":MULTIPLY"}, {233, ":OPENCONNECTION"}, {234, ":PRELOAD"},
    {235, ":PUTBEFORE"}, {236, ":PUTBEHIND"}, {237, ":QUIT"}, {238, ":READPERSISTENT"},
    {239, ":RUN"}, {240, ":SCALEBITMAP"}, {241, ":SCALEVIDEO"}, {242, ":SCROLLITEMS"},
    {243, ":SELECT"}, {244, ":SELECTITEM"}, {245, ":SENDEVENT"}, {246, ":SENDTOBACK"},
    {247, ":SETBOXSIZE"}, {248, ":SETCACHEPRIORITY"}, {249, ":SETCOUNTERENDPOSITION"},
    {250, ":SETCOUNTERPOSITION"}, {251, ":SETCOUNTERTRIGGER"}, {252, ":SETCURSORPOSITION"},
    {253, ":SETCURSORSHAPE"}, {254, ":SETDATA"}, {255, ":SETENTRYPOINT"}, {256, ":SETFILLCOLOUR"},
    {257, ":SETFIRSTITEM"}, {258, ":SETFONTREF"}, {259, ":SETHIGHLIGHTSTATUS"},
    {260, ":SETINTERACTIONSTATUS"}, {261, ":SETLABEL"}, {262, ":SETLINECOLOUR"},
    {263, ":SETLINESTYLE"}, {264, ":SETLINEWIDTH"}, {265, ":SETOVERWRITEMODE"},
    {266, ":SETPALETTEREF"}, {267, ":SETPORTION"}, {268, ":SETPOSITION"}, {269, ":SETSLIDERVALUE"},
    {270, ":SETSPEED"}, {271, ":SETTIMER"}, {272, ":SETTRANSPARENCY"}, {273, ":SETVARIABLE"},
    {274, ":SETVOLUME"}, {275, ":SPAWN"}, {276, ":STOP"}, {277, ":STEP"},
    {278, ":STOREPERSISTENT"}, {279, ":SUBTRACT"}, {280, ":TESTVARIABLE"}, {281, ":TOGGLE"},
    {282, ":TOGGLEITEM"}, {283, ":TRANSITIONTO"}, {284, ":UNLOAD"}, {285, ":UNLOCKSCREEN"},
    {286, ":ABSOLUTETIME"}, {287, ":NEWABSOLUTECOLOUR"}, {288, ":NEWCOLOURINDEX"},
    {289, ":NEWCCPRIORITY"}, {290, ":NEWCONTENTSIZE"}, {291, ":GBOOLEAN"}, {292, ":GINTEGER"},
    {293, ":GOCTETSTRING"}, {294, ":GOBJECTREF"}, {295, ":GCONTENTREF"}, {296, ":NEWREFCONTENT"},
    {297, ":INDIRECTREF"}, {298, "NULL"}, {299, "TRUE"}, {300, "FALSE"},
};
// clang-format on

TEST(Keywords, every_keyword_has_its_code) {
  ASSERT_EQ(std::size(kCodedWords), 300U);
  for (const CodedWord& coded : kCodedWords) {
    EXPECT_EQ(FindKeyword(coded.word), coded.code) << coded.word;
    EXPECT_STREQ(KeywordText(coded.code), coded.word);
  }
}

TEST(Keywords, stop_precedes_step) {
  EXPECT_EQ(FindKeyword(":STOP"), 276);
  EXPECT_EQ(FindKeyword(":STEP"), 277);
}

TEST(Keywords, an_unknown_word_has_no_code) {
  EXPECT_EQ(FindKeyword(":FOO"), 0);
  EXPECT_EQ(FindKeyword(":Scene"), 0) << "the table holds upper case only";
  EXPECT_EQ(FindKeyword(":SCEN"), 0);
  EXPECT_EQ(FindKeyword(""), 0);
}

TEST(Keywords, bucket_is_the_sum_of_signed_bytes_without_its_sign) {
  EXPECT_EQ(KeywordBucket(""), 0U);
  EXPECT_EQ(KeywordBucket("UP"), (85U + 80U) % 101U);
  EXPECT_EQ(KeywordBucket("\xFF"), 65535U % 101U);
  EXPECT_EQ(KeywordBucket("\x80\x80"), (65536U - 256U) % 101U);
}

std::string Guess(std::string_view word) {
  const char* keyword = NearestKeyword(word);
  return keyword == nullptr ? "none" : keyword;
}

TEST(NearestKeyword, a_word_with_one_wrong_letter_finds_its_keyword) {
  EXPECT_EQ(Guess(":TEXTCOLOR"), ":TEXTCOLOUR") << "a letter left out";
  EXPECT_EQ(Guess(":TEXTT"), ":TEXT") << "a letter inserted";
  EXPECT_EQ(Guess(":TAXT"), ":TEXT") << "a letter changed";
  EXPECT_EQ(Guess("ISRUNING"), "ISRUNNING");
  EXPECT_EQ(Guess(":CONTENTREF)"), ":CONTENTREF") << "with a bracket at its end";
}

TEST(NearestKeyword, long_words_may_differ_by_more_letters) {
  EXPECT_EQ(Guess(":ORIGREFFILCOLOR"), ":ORIGREFFILLCOLOUR");
  EXPECT_EQ(Guess(":TXET"), "none") << "two letters of a short word";
}

TEST(NearestKeyword, words_unlike_any_keyword_have_no_suggestion) {
  for (const char* word : {"", "X", "KEYPRESS", "RED", ":BUTTONPRESSED", "HELLO"}) {
    EXPECT_EQ(Guess(word), "none") << word;
  }
  EXPECT_EQ(Guess(std::string(41, 'A')), "none");
  EXPECT_EQ(Guess(":TEXT" + std::string(100'000, 'T')), "none");
}

TEST(NearestKeyword, each_keyword_is_nearest_to_itself) {
  for (std::uint16_t code = 1; code <= kKeywordCount; ++code) {
    EXPECT_EQ(Guess(KeywordText(code)), KeywordText(code));
  }
}

}  // namespace
}  // namespace korvel
