#include "control/gesture_cases.h"

#include "control/tree_texts.h"

// The editor on the selected node at @L of a text of one sign.
#define OPEN "press @L;release @L;press @L;release @L;"
// A placeholder in the place of the left operand, selected.
#define HOLE "press @LL;key 46;"
#define A_PLUS(left) PLUS(left, NAME("b"))

// clang-format off
std::span<const CGestureCase> GestureCases()
{
    static constexpr CGestureCase s_aRows[] = {
        // The mouse
        { "a press selects the node alone, a leaf can be dragged", "a+b", "press @LL", { { SELECTION, "/LL:1" }, { DRAG, "10" } } },
        { "another node cannot", "a+b", "press @LL;press @L", { { DRAG, "00" } } },
        { "a double click takes the subtree, a double click makes it draggable", "a+b", "double @L", { { SELECTION, "/L:2" }, { DRAG, "10" } } },
        { "a press inside it selects the node alone", "a+b", "double @L;press @LL", { { SELECTION, "/LL:1" } } },
        { "a press on its top leaves it, and remembers the press", "a+b", "double @L;press @L", { { SELECTION, "/L:2" }, { DRAG, "11" } } },
        { "a second press on an operator", "a+b", "press @L;press @L", { { DRAG, "01" } } },
        { "a second click opens the editor, the editor takes the click", "2", OPEN, { { EDITOR, "/L \"2\" 0 1 -9 -2 21 19" }, { DRAG, "10" } } },
        { "a first click does not open it", "2", "press @L;release @L", { { EDITOR, "-" } } },
        { "an operator has no editor", "a+b", "press @L;release @L;press @L;release @L", { { EDITOR, "-" } } },
        { "a click left over opens the next editor at once", "a+b", "press @L;press @L;release @L;press @LL;release @LL;char 88;char 13", { { TREE, A_PLUS(NAME("X")) } } },
        { "hover ends with a paint", "a+b", "move @LR;paint", { { HOVER, "-" } } },
        { "the parent is hovered in the place of a placeholder, which is drawn beside it", "a+b", HOLE "move 5 8", { { HOVER, "/LR" } } },
        { "a node that was scrolled to", "((a/b)/(c/d))/((e/f)/(g/h))", "size 60 60;vscroll 7;press @LRRR", { { SELECTION, "/LRRR:1" } } },
        { "no hover beside an editor", "a+b", "press @LL;release @LL;press @LL;release @LL;move @LR", { { HOVER, "-" } } },
        { "a press on the selected leaf paints nothing", "a+b", "press @LL;move @LL;press @LL", { { HOVER, "/LL" } } },
        { "no drag within one node", "a+b", "press @LL;move @LL;move @LL left", { { DRAG, "10" } } },
        { "a drag begins with another node", "a+b", "press @LL;move @LR left", { { DRAG, "101" } } },
        { "without the button there is none", "a+b", "press @LL;move @LR", { { DRAG, "10" } } },
        { "without a draggable selection there is none", "a+b", "press @L;move @LR left", { { DRAG, "00" } } },
        { "all leaves the drag switch", "a+b", "press @LL;all", { { DRAG, "10" } } },
        { "a double click beside a tree without a root makes something draggable", nullptr, "press 5 5;double 5 5;move 6 6 left", { { SELECTION, "-:2" }, { DRAG, "10" } } },
        { "a read-only control takes no press, no double click and no move", "a+b", "readonly 1;press @LL;double @LL;move @LL", { { SELECTION, "-:0" }, { HOVER, "-" } } },
        { "nor a release", "2", "press @L;release @L;press @L;readonly 1;release @L", { { EDITOR, "-" } } },
        { "a click and a double click on an edited leaf", "2", "press @L;release @L;press @L;release @L;double @L;release @L", { { EDITOR, "/L \"2\" 0 1 -9 -2 21 19" } } },

        // Keys
        { "right", "a+b", "press @L;key 39", { { SELECTION, "/LR:1" } } },
        { "left keeps the mode", "a+b", "double @L;key 37", { { SELECTION, "/LL:2" } } },
        { "up", "a+b", "press @LL;key 38", { { SELECTION, "/L:1" } } },
        { "up from the root", "a+b", "press 250 150;key 38", { { SELECTION, "/:1" } } },
        { "left on a leaf", "a+b", "press @LL;key 37", { { SELECTION, "/LL:1" } } },
        { "space twice", "a+b", "press @L;key 32;key 32", { { SELECTION, "/L:1" } } },
        { "space with Control", "a+b", "press @L;key 32 ctrl", { { SELECTION, "/L:1" } } },
        { "keys without a selection", "a+b", "key 39;key 32;key 46;key 65;key 45 shift", { { SELECTION, "-:0" } } },
        { "keys without a root, also with a mode", nullptr, "key 39;key 46;key 65;key 65 ctrl;key 86 ctrl;double 1 1;key 32;key 38", { { SELECTION, "-:2" } } },
        { "delete a leaf, which stays selected, and is told, without an undo step", "a+b", HOLE, { { TREE, A_PLUS(PLACE) }, { SELECTION, "/LL:1" }, { COUNTS, "undo 0 changed 1" } } },
        { "delete an operator alone", "a+b", "press @L;key 46", { { COUNTS, "undo 0 changed 0" } } },
        { "delete a subtree", "a+b", "press @L;key 32;key 46", { { TREE, TREE_OF(PLACE) } } },
        { "delete the root", "a+b", "all;key 46", { { COUNTS, "undo 0 changed 0" } } },
        { "delete a placeholder", "a+b", HOLE "key 46", { { COUNTS, "undo 0 changed 2" } } },
        { "delete what cannot be replaced", "sum(i,i=1,n)", "press @L;key 37;key 32;key 46", { { COUNTS, "undo 0 changed 0" } } },
        { "delete on a read-only control", "a+b", "press @LL;readonly 1;key 46", { { COUNTS, "undo 0 changed 0" } } },
        { "a letter on a placeholder, makes it a variable, which is told when the edit ends", "a+b", HOLE "key 65", { { EDITOR, "/LL \"A\" 1 1 -9 0 34 21" }, { TREE, A_PLUS(NAME("A")) }, { COUNTS, "undo 0 changed 1" } } },
        { "a letter and Escape", "a+b", HOLE "key 65;char 27", { { TREE, A_PLUS(NAME("var")) } } },
        { "a letter on an operator", "a+b", "press @L;key 65", { { EDITOR, "-" } } },
        { "a digit with Shift", "a+b", "press @LL;key 55 shift;char 13", { { TREE, A_PLUS(NAME("7")) } } },
        { "1 on the number pad", "a+b", "press @LL;key 97;char 13", { { TREE, A_PLUS(NAME("a")) } } },
        { "F11", "a+b", "press @LL;key 122;char 13", { { TREE, A_PLUS(NAME("z")) } } },
        { "F12", "a+b", "press @LL;key 123", { { EDITOR, "-" } } },
        { "0 on the number pad", "a+b", "press @LL;key 96", { { EDITOR, "-" } } },
        { "Control and C on a read-only control types", "a+b", "press @LL;readonly 1;key 67 ctrl", { { EDITOR, "/LL \"C\" 1 1 -9 0 21 21" } } },
        { "Control and Z", "a+b", HOLE "key 90 ctrl;key 89 ctrl", { { TREE, A_PLUS(PLACE) } } },
        { "Control and A", "a+b", "key 65 ctrl", { { SELECTION, "/:2" } } },
        { "Control and a letter type nothing", "a+b", "press @LL;key 66 ctrl", { { EDITOR, "-" } } },

        // The editor
        { "Enter tells a change and takes a step", "2", OPEN "char 13", { { COUNTS, "undo 1 changed 1" } } },
        { "Tab", "2", OPEN "char 51;char 9", { { TREE, NUMBER("3") } } },
        { "Escape goes back, and takes a step all the same", "2", OPEN "char 51;char 52;char 27", { { TREE, NUMBER("2") }, { COUNTS, "undo 1 changed 1" } } },
        { "nothing is selected then, in mode 1", "2", "press @L;release @L;press @L;release @L;key 38", { { SELECTION, "-:1" } } },
        { "also after a subtree", "2", "double @L;press @L;release @L;char 13", { { SELECTION, "-:1" } } },
        { "left ends", "2", OPEN "key 37", { { EDITOR, "-" } } },
        { "up ends", "2", OPEN "key 38", { { EDITOR, "-" } } },
        { "page down ends", "2", OPEN "key 34", { { EDITOR, "-" } } },
        { "End stays", "2", OPEN "key 35", { { EDITOR, "/L \"2\" 1 1 -9 -2 21 19" } } },
        { "Home stays", "2", OPEN "key 36", { { EDITOR, "/L \"2\" 0 0 -9 -2 21 19" } } },
        { "typing behind the text", "2", OPEN "key 35;char 53;char 13", { { TREE, NUMBER("25") } } },
        { "Backspace", "2", OPEN "key 35;char 8;char 8;char 13", { { TREE, NUMBER("") } } },
        { "Delete", "2", OPEN "key 36;key 46;key 46;char 13", { { TREE, NUMBER("") } } },
        { "the box grows with the node", "2", OPEN "char 49;char 49;char 49", { { EDITOR, "/L \"111\" 3 3 -9 -2 37 19" } } },
        { "another window takes the focus", "2", OPEN "char 51;blur", { { TREE, NUMBER("3") } } },
        { "a press in the box", "2", OPEN "press 5 5;release 5 5;double 5 5", { { EDITOR, "/L \"2\" 0 1 -9 -2 21 19" } } },
        { "a press beside it, which also selects", "2", OPEN "char 51;press 200 100", { { COUNTS, "undo 1 changed 1" }, { SELECTION, "/:1" } } },
        { "deleted under the editor, the edit ends first", "a+b", "press @LL;key 88;char 89;delete", { { TREE, A_PLUS(PLACE) }, { COUNTS, "undo 1 changed 1" } } },
        { "cut with its text", "a+b", "press @LL;key 88;char 89;cut;all;key 37;key 37;paste", { { TREE, A_PLUS(NAME("XY")) } } },
        { "copied with its sign", "a+b", "press @LL;key 88;copy;char 13;press @LR;key 46;paste;press @LR;key 65;char 27", { { TREE, TREE_OF("(PLUS \"+\" " NAME("X") " " NAME("X") ")") } } },
        { "all takes the whole formula beside an open editor too", "a+b", "press @LL;key 88;all", { { SELECTION, "/:2" } } },
        { "keys go to the editor", "a+b", "press @LL;key 88;key 46;key 32;key 65", { { TREE, A_PLUS(NAME("X")) } } },
        { "characters without an editor", "a+b", "press @LL;char 65;blur", { { EDITOR, "-" } } },
        { "a letter on a deleted root's placeholder", "2", "press @L;key 46;key 90;char 13", { { TREE, TREE_OF(NAME("Z")) } } },

        // The clipboard
        { "cut leaves a placeholder, with one step, untold, and nothing selected", "a+b", "press @LL;cut", { { TREE, A_PLUS(PLACE) }, { COUNTS, "undo 1 changed 0" }, { SELECTION, "-:1" } } },
        { "cut of the root takes a step and deletes nothing", "2", "all;cut", { { COUNTS, "undo 1 changed 0" }, { TREE, NUMBER("2") } } },
        { "cut of nothing, and of a read-only control", "a+b", "cut;press @LL;readonly 1;cut", { { COUNTS, "undo 0 changed 0" } } },
        { "copy and paste, a paste takes a step and the selection", "a+b", "press @LR;copy;" HOLE "paste", { { TREE, A_PLUS(NAME("b")) }, { COUNTS, "undo 1 changed 1" } } },
        { "copied is the whole subtree in either mode", "a+b", "press @L;copy;" HOLE "paste", { { TREE, A_PLUS("(PLUS \"+\" " NAME("a") " " NAME("b") ")") } } },
        { "a paste of nothing too, it leaves the placeholder", "a+b", HOLE "paste", { { COUNTS, "undo 1 changed 1" }, { TREE, A_PLUS(PLACE) } } },
        { "a paste on anything else does nothing", "a+b", "press @LR;copy;press @LL;paste", { { COUNTS, "undo 0 changed 0" } } },
        { "a read-only control pastes", "a+b", "press @LR;copy;" HOLE "readonly 1;paste", { { TREE, A_PLUS(NAME("b")) } } },
        { "keys of the clipboard", "a+b", "press @LR;key 45 ctrl;press @LL;key 88 ctrl;all;key 37;key 37;key 45 shift", { { TREE, A_PLUS(NAME("a")) } } },
        { "the root is pasted as a node", "2", "all;copy;press @L;key 46;paste", { { TREE, TREE_OF(NUMBER("2")) } } },
        { "damaged data, damaged data take a step", "a+b", HOLE "clip 00;paste", { { TREE, A_PLUS(PLACE) }, { SELECTION, "-:1" }, { COUNTS, "undo 1 changed 1" } } },
        { "an empty tree", "a+b", HOLE "clip 0000000000000000000000000000000000000000000000;paste", { { TREE, A_PLUS(PLACE) } } },
    };
    return s_aRows;
}

std::span<const CGestureCase> DropCases()
{
    static constexpr CGestureCase s_aRows[] = {
        { "entering with our data", "a+b", "press @LR;copy;" HOLE "enter @LL", { { ANSWER, "0" } } },
        { "over a placeholder", "a+b", "press @LR;copy;" HOLE "enter @LL;over @LL", { { ANSWER, "2" } } },
        { "over anything else", "a+b", "press @LR;copy;" HOLE "over @LR", { { ANSWER, "0" } } },
        { "and stays when it leaves", "a+b", "press @LR;copy;over @LL;leave", { { HOVER, "/LL" } } },
        { "entering with foreign data", "a+b", HOLE "enter @LL", { { ANSWER, "2" } } },
        { "over with foreign data", "a+b", HOLE "enter @LL;over @LL", { { ANSWER, "0" } } },
        { "read-only refuses", "a+b", "press @LR;copy;" HOLE "readonly 1;over @LL", { { ANSWER, "0" } } },
        { "read-only lets foreign data enter", "a+b", HOLE "readonly 1;enter @LL", { { ANSWER, "2" } } },
        { "a drop, is taken, with a step", "a+b", "press @LR;copy;" HOLE "over @LL;drop @LL", { { TREE, A_PLUS(NAME("b")) }, { ANSWER, "TRUE" }, { COUNTS, "undo 1 changed 1" } } },
        { "a second one does not come by itself", "a+b", "press @LR;copy;" HOLE "over @LL;drop @LL;drop @LL", { { ANSWER, "-" } } },
        { "after a refusal it does not come", "a+b", "press @LR;copy;" HOLE "over @LR;drop @LL", { { ANSWER, "-" } } },
        { "nor after leaving", "a+b", "press @LR;copy;" HOLE "over @LL;leave;drop @LL", { { ANSWER, "-" } } },
        { "after a paint it has no target", "a+b", "press @LR;copy;" HOLE "over @LL;paint;drop @LL", { { ANSWER, "FALSE" } } },
        { "foreign data dropped", "a+b", HOLE "enter @LL;drop @LL", { { ANSWER, "FALSE" } } },
        { "a drag of the own moves, and tells so, the new placeholder is selected, mode 2, one step", "a+b", HOLE "press @LR;move @LL left;over @LL;drop @LL", { { TREE, TREE_OF("(PLUS \"+\" " NAME("b") " " PLACE ")") }, { ANSWER, "TRUE 2" }, { SELECTION, "/LR:2" }, { COUNTS, "undo 1 changed 1" } } },
        { "with Control it copies, and the source is selected, mode 2", "a+b", HOLE "press @LR;move @LL left;over @LL ctrl;drop @LL", { { TREE, A_PLUS(NAME("b")) }, { SELECTION, "/LR:2" } } },
        { "a drop where nothing can be, selects in mode 2", "a+b", "press @LR;move @LL left;over @LL;drop @LL", { { ANSWER, "- 0" }, { SELECTION, "/LR:2" } } },
        { "another gesture cancels", "a+b", "press @LR;move @LL left;over @LL;paint", { { ANSWER, "- 0" } } },
        { "and is played", "a+b", "press @LR;move @LL left;over @LL;press @LL", { { SELECTION, "/LL:1" } } },
        { "a placeholder on itself", "a+b", HOLE "press @LL;move @LR left;over @LL;drop @LL", { { ANSWER, "FALSE 0" } } },
        { "a subtree on a placeholder in it, and nothing is deleted", "a+b", HOLE "double @L;move @LR left;over @LL;drop @LL", { { ANSWER, "FALSE 0" }, { TREE, A_PLUS(PLACE) } } },
    };
    return s_aRows;
}
