// The actions of workloads/actions.cpp as a Lua programmer would write them: an action is a
// function that finds its target by number in a table of objects, checks its class and changes a
// field; an action list is a function of 100 such calls with literal parameters, compiled once and
// called once per run. An event looks up its handlers by source, type and data in nested tables,
// and calls each of them.
//
// Lua has less to do in some places: there is one table of objects instead of two groups with names
// and a search order, strings are shared instead of copied, there is no limit on the number of
// actions and no check for a pending close. It has more to do in others: it decodes bytecode and
// checks the type of each operand. Both run the same 100 actions on the same targets.
#include <lua.hpp>

#include <memory>

#include "measure.h"
#include "workloads/targets.h"

namespace bench {
namespace {

constexpr const char* kActionFunctions = R"(
local INTEGER, STRING, TOKEN, RECTANGLE = 1, 2, 3, 4
local EQUAL, TEST_EVENT, MOVED_FROM, MOVED_TO = 1, 19, 8, 9
local objects, handlers, redraws = {}, {}, 0

local function raise(number, event, data)
  local source = handlers[number]
  local type = source and source[event]
  local effects = type and type[data]
  if effects then for i = 1, #effects do effects[i]() end end
end
local function request_redraw() redraws = redraws + 1 end

local function add(number, value)
  local object = objects[number]
  if object and object.class == INTEGER then object.value = object.value + value end
end
local function set_integer(number, value)
  local object = objects[number]
  if object and object.class == INTEGER then object.value = value end
end
local function set_string(number, value)
  local object = objects[number]
  if object and object.class == STRING then object.value = value end
end
local function test(number, comparison, value)
  local object = objects[number]
  if object and object.class == INTEGER then
    raise(number, TEST_EVENT, (object.value == value) == (comparison == EQUAL))
  end
end
local function move(number, movement)
  local object = objects[number]
  if object and object.class == TOKEN and object.running then
    local targets = object.movements[movement]
    local target = targets and targets[object.position]
    if target and target ~= object.position then
      raise(number, MOVED_FROM, object.position)
      object.position = target
      raise(number, MOVED_TO, target)
    end
  end
end
local function call_action_slot(number, index)
  local object = objects[number]
  if object and object.class == TOKEN and object.running then
    local slot = object.members[object.position].slots[index]
    if slot then slot() end
  end
end
local function set_position(number, x, y)
  local object = objects[number]
  if object and object.class == RECTANGLE then
    object.x, object.y = x, y
    if object.running then request_redraw() end
  end
end

objects[1000001] = {class = INTEGER, value = 0}
local function count() add(1000001, 1) end
)";

struct ActionCase {
  const char* workload;
  const char* target;   // a new target
  const char* call;     // the call of the action; %d is the target's number
  const char* handler;  // a handler of the target's events, or nil
};
const ActionCase kActionCases[] = {
    {"actions/add", "{class = INTEGER, value = 0}", "add(%d, 3)", "nil"},
    {"actions/set_integer", "{class = INTEGER, value = 0}", "set_integer(%d, 7)", "nil"},
    {"actions/set_string", "{class = STRING, value = ''}", "set_string(%d, 'Channel 4')", "nil"},
    {"actions/test_and_fire", "{class = INTEGER, value = 0}", "test(%d, EQUAL, 0)",
     "{[TEST_EVENT] = {[true] = {count}}}"},
    {"actions/move", "{class = TOKEN, running = true, position = 1, movements = {{2, 3, 1}}}",
     "move(%d, 1)", "nil"},
    {"actions/call_action_slot",
     "{class = TOKEN, running = true, position = 1, members = {{slots = {count}}}}",
     "call_action_slot(%d, 1)", "nil"},
    {"actions/set_position", "{class = RECTANGLE, running = true, x = 0, y = 0}",
     "set_position(%d, 30, 50)", "nil"},
};

// A chunk that creates the objects and returns the function to measure.
std::string ChunkOf(const ActionCase& measured, int size) {
  std::string chunk = kActionFunctions;
  chunk += "for number = 1, " + std::to_string(size) +
           " do objects[number] = {class = INTEGER, value = 0} end\n";
  for (int i = 0; i < kTargets; ++i) {
    const std::string number = std::to_string(TargetAt(i, size));
    chunk.append("objects[").append(number).append("] = ").append(measured.target).append("\n");
    chunk.append("handlers[").append(number).append("] = ").append(measured.handler).append("\n");
  }
  std::string calls;
  for (int i = 0; i < kActions; ++i) {
    calls.append(measured.call).append("\n");
    calls.replace(calls.rfind("%d"), 2, std::to_string(TargetAt(i, size)));
  }
  return chunk + "return function()\n" + calls + "end";
}

Work Prepare(const ActionCase& measured, int size) {
  const std::shared_ptr<lua_State> state(luaL_newstate(), lua_close);
  lua_State* lua = state.get();
  if (luaL_dostring(lua, ChunkOf(measured, size).c_str()) != LUA_OK) Fail(lua_tostring(lua, -1));
  const int function = luaL_ref(lua, LUA_REGISTRYINDEX);
  return {[state, lua, function] {
            lua_rawgeti(lua, LUA_REGISTRYINDEX, function);
            Require(lua_pcall(lua, 0, 0, 0) == LUA_OK, "the Lua function failed");
          },
          kActions};
}

}  // namespace

std::vector<Reference> LuaReferences() {
  std::vector<Reference> references;
  for (const ActionCase& measured : kActionCases) {
    references.push_back(
        {measured.workload, "lua", [&measured](int size) { return Prepare(measured, size); }});
  }
  return references;
}

}  // namespace bench
