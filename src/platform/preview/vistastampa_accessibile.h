// The preview's text for screen readers.
#pragma once

/// Lets the sheets of every preview be read as a text that cannot be written. Called more than once it does
/// the same.
void RendiLeggibileAnteprima();
