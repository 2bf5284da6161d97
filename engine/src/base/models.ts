// The names of the models that the engine itself has, as the settings and the options show them.

/** The answers that need no language model. */
export const builtInModel = "built-in";
/** The recognisers that the engine's package brings. They know English and nothing else. */
export const moonshineBase = "moonshine-base";
export const moonshineTiny = "moonshine-tiny";
/** The recogniser that listens by a grammar. */
export const grammarModel = "pocketsphinx";
/** The synthesiser. */
export const speechModel = "espeak-ng";
