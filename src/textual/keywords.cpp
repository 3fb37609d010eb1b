// The one list of keywords, in the order of their codes, the hash table built from it at compile
// time, and suggestions for misspelt keywords.
#include "textual/keywords.h"

#include <algorithm>
#include <array>

namespace korvel {
namespace {

// clang-format off
constexpr std::array<const char*, kKeywordCount> kKeywords = {
    ":STDID", ":STDVERSION", ":OBJECTINFO", ":ONSTARTUP", ":ONCLOSEDOWN", ":ORIGGCPRIORITY",
    ":ITEMS", ":APPLICATION", ":ONSPAWNCLOSEDOWN", ":ONRESTART", ":CHARACTERSET",
    ":BACKGROUNDCOLOUR", ":TEXTCHOOK", ":TEXTCOLOUR", ":FONT", ":FONTATTRIBUTES",
    ":INTERCHGPRGCHOOK", ":STREAMCHOOK", ":BITMAPCHOOK", ":LINEARTCHOOK", ":BUTTONREFCOLOUR",
    ":HIGHLIGHTREFCOLOUR", ":SLIDERREFCOLOUR", ":SCENE", ":INPUTEVENTREG", ":SCENECS",
    ":ASPECTRATIO", ":MOVINGCURSOR", ":NEXTSCENES", ":INITIALLYACTIVE", ":CHOOK", ":ORIGCONTENT",
    ":CONTENTREF", ":CONTENTSIZE", ":CCPRIORITY", ":SHARED", ":LINK", ":EVENTSOURCE", ":EVENTTYPE",
    "ISAVAILABLE", "CONTENTAVAILABLE", "ISDELETED", "ISRUNNING", "ISSTOPPED", "USERINPUT",
    "ANCHORFIRED", "TIMERFIRED", "ASYNCHSTOPPED", "INTERACTIONCOMPLETED", "TOKENMOVEDFROM",
    "TOKENMOVEDTO", "STREAMEVENT", "STREAMPLAYING", "STREAMSTOPPED", "COUNTERTRIGGER",
    "HIGHLIGHTON", "HIGHLIGHTOFF", "CURSORENTER", "CURSORLEAVE", "ISSELECTED", "ISDESELECTED",
    "TESTEVENT", "FIRSTITEMPRESENTED", "LASTITEMPRESENTED", "HEADITEMS", "TAILITEMS",
    "ITEMSELECTED", "ITEMDESELECTED", "ENTRYFIELDFULL", "ENGINEEVENT", ":EVENTDATA", ":LINKEFFECT",
    ":NAME", ":INITIALLYAVAILABLE", ":RESIDENTPRG", ":REMOTEPRG", ":CONNECTIONTAG", ":INTERCHGPRG",
    ":PALETTE", ":CURSORSHAPE", ":ORIGVALUE", ":OBJECTREF", ":BOOLEANVAR", ":INTEGERVAR",
    ":OSTRINGVAR", ":OBJECTREFVAR", ":CONTENTREFVAR", ":MOVEMENTTABLE", ":TOKENGROUP",
    ":TOKENGROUPITEMS", ":ACTIONSLOTS", ":NOTOKENACTIONSLOTS", ":LISTGROUP", ":POSITIONS",
    ":WRAPAROUND", ":MULTIPLESELECTION", ":ORIGBOXSIZE", ":ORIGPOSITION", ":ORIGPALETTEREF",
    ":BITMAP", ":TILING", ":ORIGTRANSPARENCY", ":LINEART", ":BBBOX", ":ORIGLINEWIDTH",
    ":ORIGLINESTYLE", ":ORIGREFLINECOLOUR", ":ORIGREFFILLCOLOUR", ":RECTANGLE", ":DYNAMICLINEART",
    ":TEXT", ":ORIGFONT", ":HJUSTIFICATION", "START", "END", "CENTRE", "JUSTIFIED",
    ":VJUSTIFICATION", ":LINEORIENTATION", "VERTICAL", "HORIZONTAL", ":STARTCORNER", "UPPER-LEFT",
    "UPPER-RIGHT", "LOWER-LEFT", "LOWER-RIGHT", ":TEXTWRAPPING", ":STREAM", ":MULTIPLEX",
    ":STORAGE", "MEMORY", "STREAM", ":LOOPING", ":AUDIO", ":COMPONENTTAG", ":ORIGVOLUME", ":VIDEO",
    ":TERMINATION", "FREEZE", "DISAPPEAR", ":RTGRAPHICS", ":ENGINERESP", ":SLIDER", ":ORIENTATION",
    "LEFT", "RIGHT", "UP", "DOWN", ":MAXVALUE", ":MINVALUE", ":INITIALVALUE", ":INITIALPORTION",
    ":STEPSIZE", ":SLIDERSTYLE", "NORMAL", "THERMOMETER", "PROPORTIONAL", ":ENTRYFIELD",
    ":INPUTTYPE", "ALPHA", "NUMERIC", "ANY", "LISTED", ":CHARLIST", ":OBSCUREDINPUT", ":MAXLENGTH",
    ":HYPERTEXT", ":HOTSPOT", ":PUSHBUTTON", ":ORIGLABEL", ":SWITCHBUTTON", ":BUTTONSTYLE",
    "PUSHBUTTON", "RADIOBUTTON", "CHECKBOX", ":ACTIVATE", ":ADD", ":ADDITEM", ":APPEND",
    ":BRINGTOFRONT", ":CALL", ":CALLACTIONSLOT", ":CLEAR", ":CLONE", ":CLOSECONNECTION",
    ":DEACTIVATE", ":DELITEM", ":DESELECT", ":DESELECTITEM", ":DIVIDE", ":DRAWARC", ":DRAWLINE",
    ":DRAWOVAL", ":DRAWPOLYGON", ":DRAWPOLYLINE", ":DRAWRECTANGLE", ":DRAWSECTOR", ":FORK",
    ":GETAVAILABILITYSTATUS", ":GETBOXSIZE", ":GETCELLITEM", ":GETCURSORPOSITION",
    ":GETENGINESUPPORT", ":GETENTRYPOINT", ":GETFILLCOLOUR", ":GETFIRSTITEM", ":GETHIGHLIGHTSTATUS",
    ":GETINTERACTIONSTATUS", ":GETITEMSTATUS", ":GETLABEL", ":GETLASTANCHORFIRED", ":GETLINECOLOUR",
    ":GETLINESTYLE", ":GETLINEWIDTH", ":GETLISTITEM", ":GETLISTSIZE", ":GETOVERWRITEMODE",
    ":GETPORTION", ":GETPOSITION", ":GETRUNNINGSTATUS", ":GETSELECTIONSTATUS", ":GETSLIDERVALUE",
    ":GETTEXTCONTENT", ":GETTEXTDATA", ":GETTOKENPOSITION", ":GETVOLUME", ":LAUNCH", ":LOCKSCREEN",
    ":MODULO", ":MOVE", ":MOVETO", ":MULTIPLY", ":OPENCONNECTION", ":PRELOAD", ":PUTBEFORE",
    ":PUTBEHIND", ":QUIT", ":READPERSISTENT", ":RUN", ":SCALEBITMAP", ":SCALEVIDEO", ":SCROLLITEMS",
    ":SELECT", ":SELECTITEM", ":SENDEVENT", ":SENDTOBACK", ":SETBOXSIZE", ":SETCACHEPRIORITY",
    ":SETCOUNTERENDPOSITION", ":SETCOUNTERPOSITION", ":SETCOUNTERTRIGGER", ":SETCURSORPOSITION",
    ":SETCURSORSHAPE", ":SETDATA", ":SETENTRYPOINT", ":SETFILLCOLOUR", ":SETFIRSTITEM",
    ":SETFONTREF", ":SETHIGHLIGHTSTATUS", ":SETINTERACTIONSTATUS", ":SETLABEL", ":SETLINECOLOUR",
    ":SETLINESTYLE", ":SETLINEWIDTH", ":SETOVERWRITEMODE", ":SETPALETTEREF", ":SETPORTION",
    ":SETPOSITION", ":SETSLIDERVALUE", ":SETSPEED", ":SETTIMER", ":SETTRANSPARENCY", ":SETVARIABLE",
    ":SETVOLUME", ":SPAWN", ":STOP", ":STEP", ":STOREPERSISTENT", ":SUBTRACT", ":TESTVARIABLE",
    ":TOGGLE", ":TOGGLEITEM", ":TRANSITIONTO", ":UNLOAD", ":UNLOCKSCREEN", ":ABSOLUTETIME",
    ":NEWABSOLUTECOLOUR", ":NEWCOLOURINDEX", ":NEWCCPRIORITY", ":NEWCONTENTSIZE", ":GBOOLEAN",
    ":GINTEGER", ":GOCTETSTRING", ":GOBJECTREF", ":GCONTENTREF", ":NEWREFCONTENT", ":INDIRECTREF",
    "NULL", "TRUE", "FALSE",
};
// clang-format on

// The keywords of each bucket are a chain of codes, ended by 0.
struct KeywordTable {
  std::array<std::uint16_t, kKeywordBuckets> first{};
  std::array<std::uint16_t, kKeywordCount + 1> next{};
};

consteval KeywordTable MakeTable() {
  KeywordTable table;
  for (std::uint16_t code = kKeywordCount; code >= 1; --code) {
    std::uint16_t& first = table.first[KeywordBucket(kKeywords[code - 1U])];
    table.next[code] = first;
    first = code;
  }
  return table;
}
constexpr KeywordTable kTable = MakeTable();

// ---- Guesses ----

// Longer words are not compared: they are not near any keyword.
constexpr std::size_t kLongestWord = 40;

// The number of letters to insert, omit or change. Neither word is longer than kLongestWord.
std::size_t Distance(std::string_view one, std::string_view other) {
  // The distances between the part of `one` read so far and each prefix of `other`.
  std::array<std::size_t, kLongestWord + 1> row{};
  for (std::size_t k = 0; k <= other.size(); ++k) row[k] = k;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t k = 1; k <= other.size(); ++k) {
      const std::size_t changed = diagonal + (one[i - 1] == other[k - 1] ? 0 : 1);
      diagonal = row[k];
      row[k] = std::min({changed, row[k] + 1, row[k - 1] + 1});
    }
  }
  return row[other.size()];
}

}  // namespace

const char* KeywordText(std::uint16_t code) { return kKeywords[code - 1U]; }

std::uint16_t FindKeyword(std::string_view word) {
  std::uint16_t code = kTable.first[KeywordBucket(word)];
  while (code != 0 && kKeywords[code - 1U] != word) code = kTable.next[code];
  return code;
}

const char* NearestKeyword(std::string_view word) {
  if (word.size() > kLongestWord) return nullptr;
  std::size_t nearest = std::max<std::size_t>(word.size() / 4, 1) + 1;
  const char* found = nullptr;
  for (std::uint16_t code = 1; code <= kKeywordCount; ++code) {
    const std::size_t distance = Distance(word, KeywordText(code));
    if (distance >= nearest) continue;
    nearest = distance;
    found = KeywordText(code);
  }
  return found;
}

}  // namespace korvel
