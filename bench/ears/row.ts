// What a scene of the bench found.

export interface Row {
    what: string;
    here: string;
    /** What is to be reached; a figure without it is only told. */
    reach?: string;
    isMet?: boolean;
}

export function told(what: string, here: string): Row {
    return { what, here };
}

export function marked(what: string, here: string, reach: string, isMet: boolean): Row {
    return { what, here, reach, isMet };
}

export const line = ({ what, here, reach = "reported", isMet }: Row): string =>
    `| ${what} | ${here} | ${reach} | ${isMet === undefined ? "" : isMet ? "yes" : "no"} |`;

export function median(values: number[]): number {
    const sorted = [...values].sort((a, b) => a - b);
    const middle = sorted.length >> 1;
    return sorted.length === 0 ? NaN : sorted.length % 2 === 1 ? sorted[middle]! : (sorted[middle - 1]! + sorted[middle]!) / 2;
}
