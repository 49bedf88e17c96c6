#pragma once

// How a creature class hands out feat points: the "BFP..." columns of "[info Class]".
struct DFeatPointValues {
    int base = 0;
    bool intBonus = false;  // a non-negative Intelligence modifier is added
    int perHD = 0;          // hit dice per further feat; 0 gives none
    bool isTotalHD = false; // count all hit dice rather than those above the size's allowance
};
