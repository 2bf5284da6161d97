// What a table of requests holds: the hand, what it is given, and sentences that mean just this.

export type Requests = readonly (readonly [hand: string, given: Readonly<Record<string, unknown>>, sentences: readonly string[]])[];
