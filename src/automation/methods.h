// What the methods do, one function each, named as its method.
#pragma once

#include "automation/arguments.h"
#include "automation/json.h"

namespace kolvane::automation {

class Session;

// Gets parameters that have passed the table's check, and a session that has started if the method needs one.
// Returns the result; a base::Error goes to the client as an error of the host, a RequestError as what it
// says.
using MethodFunction = Json(Session& session, const Arguments& arguments);

namespace methods {

MethodFunction sessionStart, sessionInfo, sessionEnd;

MethodFunction hostOpen, hostProjects, hostNewProject, hostAddComponent, hostAddFile, hostRemoveComponent,
    hostSaveProject, hostSaveComponent, hostReload, hostCloseProject, hostActivate, hostReadOnly,
    hostFileText;
MethodFunction hostOpenCode, hostSelect, hostSelection, hostText, hostSetText, hostEdit, hostFind,
    hostProcedures, hostProcAt, hostMembers;
MethodFunction hostControls, hostAddControl, hostRemoveControl, hostRenameControl, hostGetProperty,
    hostSetProperty, hostSelectControls;
MethodFunction hostWindows, hostCloseWindow, hostCommandBars, hostClickBar, hostRun, hostKeys;

MethodFunction suiteConnect, suiteBeginShutdown, suiteDisconnect, suiteCommands, suiteRun, suiteDispatch,
    suiteTick;

MethodFunction formsList, formsGet, formsSet, formsClick, formsDoubleClick, formsKey, formsFocus, formsClose;

MethodFunction dialogsAnswer, dialogsLog, clipboardGet, clipboardSet;

MethodFunction settingsGet, settingsSet, settingsAll, settingsDelete;
MethodFunction registryRead, registryWrite, registryKeys, registryValues, registryDeleteKey,
    registryDeleteValue;

// {"done": true}; false where a person at the screen would not have got it done either.
inline Json done(bool value = true) { return {{"done", value}}; }

}  // namespace methods
}  // namespace kolvane::automation
