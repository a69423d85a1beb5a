// Trees of small formulas, in the form that tests compare.
#pragma once

#define TREE_OF(formula) "(STANDARD \"\" " formula " -)"
#define PLUS(left, right) TREE_OF("(PLUS \"+\" " left " " right ")")
#define NAME(name) "(VARIABLE \"" name "\" - -)"
#define NUMBER(digits) TREE_OF("(NUMBER \"" digits "\" - -)")
#define PLACE "(PLACEHOLDER \"\" - -)"
