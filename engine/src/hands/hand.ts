// What the agent can do besides talking: one hand for each kind of thing.

import type { Language } from "../base/language.ts";

/** A JSON Schema of an object, as chat models take it for a tool's parameters. */
export interface ParameterSchema {
  readonly type: "object";
  readonly properties: Readonly<Record<string, unknown>>;
  readonly required?: readonly string[];
}

/** One thing that the agent can do besides talking. A model calls it as a tool; a sentence does without a model. */
export interface Hand {
  /** Names it to models and in the settings' `confirmActions`: "timer", "note", "open". */
  readonly id: string;
  /** For a model: what it is good for, in English. */
  readonly description: string;
  readonly parameters: ParameterSchema;
  /** True when it changes or sends something: it is asked about first unless the user has switched that off. */
  readonly changes: boolean;
  /** True when it is offered to models only (files). */
  readonly forModelsOnly?: boolean;
  /** Says in words exactly what `act` would do with `given`, for the question before it; undefined when `given` makes no sense. */
  intent(given: unknown, language: Language): string | undefined;
  /**
   * Does it. Resolves to a sentence for the user, which a model gets as the tool's result. It never rejects for what the world refuses (no
   * such file, no such program): that is a sentence as well. Ends early when `signal` aborts.
   */
  act(given: unknown, language: Language, signal: AbortSignal): Promise<string>;
}
