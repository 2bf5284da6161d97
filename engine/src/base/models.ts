// The names of the models that the engine itself has, as the settings and the options show them.

/** The answers that need no language model. */
export const builtInModel = "built-in";
/** The recogniser that listens by a grammar. */
export const grammarModel = "pocketsphinx";
