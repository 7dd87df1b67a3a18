// The date boxes of the calculators.
#pragma once

class MascheraData;

/// A date typed with two digits of the year shows all four when the box is left.
void CompletaAnno(MascheraData* Campo);
