# Turns calls.txt and the native library's answers into a script that makes every call late bound
# and compares:  jq -n -r --slurpfile calls calls.txt --slurpfile answers answers.txt
#                --arg part script|texts -f calls_script.jq
# A script is read in the machine's code page: texts beyond ASCII stand in a file of their own
# (--arg part texts), a line each, and the script names them by number.

def hostObjects: {DataObj: "data", AppObj: "app", ClientObj: "client", ConObj: "data.Connection"};
def isPlain: test("^[ -~]*$");
def isDate: test("^[0-9]{4}-[0-9]{2}-[0-9]{2}$");
def isMoney: test("^-?[0-9]+[.][0-9]{4}$");
def dayNumber: (strptime("%Y-%m-%d") | mktime) / 86400 + 25569;
def allTexts: [$calls, $answers | .. | strings | select(isPlain | not)] | unique;

# A value as a literal of the script.
def literal($texts):
  if . == null then "Empty"
  elif type == "boolean" then if . then "True" else "False" end
  elif type == "number" then tostring
  elif isDate then "CDate(\(dayNumber))"
  elif isMoney then "CCur(\(tonumber))"
  elif isPlain then "\"\(gsub("\""; "\"\""))\""
  else . as $text | "texts(\($texts | index($text)))" end;

# The arguments in their order; what comes back stands in variables of the parameters' names.
def arguments($outs; $texts):
  [.params | to_entries[] | select(.key != "object" and .key != "property")
   | .key as $name
   | if hostObjects | has($name) then hostObjects[$name]
     elif $outs | has($name) then "by" + $name
     else .value | literal($texts) end] | join(", ");

def statement($outs; $texts):
  if .method == "EmployeeObject.new" then "Set employee = CreateObject(\"KT7HRLib.EmployeeObject\") : v = 1"
  elif .method == "EmployeeObject.free" then "Set employee = Nothing : v = Empty"
  elif .method == "EmployeeObject.get" then "v = employee.\(.params.property)"
  elif .method == "EmployeeObject.set" then
    "employee.\(.params.property) = \(.params.value | literal($texts)) : v = Empty"
  else
    (if .method | startswith("EmployeeObject.") then "employee." + .method[15:] else "hr." + .method end)
    as $called | "v = \($called)(\(arguments($outs; $texts)))"
  end;

# What a call came to, and what each of its by-reference arguments holds afterwards.
def checks($answer; $outs; $texts):
  "\(.method) #\($answer.id)" as $name
  | if $answer.error then
      "Refused \"\($name)\", \($answer.error.code), \($answer.error.message | literal($texts))"
    else
      "Answered \"\($name)\", v, \($answer.result.value | literal($texts))",
      ($outs | to_entries[]
       | "Holds \"\($name) \(.key)\", by\(.key), \(.value | literal($texts))")
    end;

allTexts as $texts
| if $part == "texts" then $texts[]
  else
    range($calls | length) as $i
    | $answers[$i] as $answer
    | $calls[$i]
    | .params as $given
    | (($answer.result.out // {}) | with_entries(select(.key as $name | $given | has($name)))) as $outs
    | "Err.Clear : v = \"nothing came back\"",
      ($outs | keys_unsorted[] | "by\(.) = \($given[.] | literal($texts))"),
      statement($outs; $texts),
      checks($answer; $outs; $texts)
  end
