// The small changes that can be made to a source of C++: found by its text alone, so some of them do not compile.

export interface Mutant {
    /** Below the project's folder. */
    file: string;
    /** Where the replaced text begins, in characters from the file's first. */
    offset: number;
    was: string;
    becomes: string;
    kind: Kind;
}

export type Kind = "comparison" | "logic" | "arithmetic" | "constant" | "condition" | "statement" | "arguments";

const opposites: Record<string, string> = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">",
    "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*",
};

/** The same text with blanks in place of comments, of what is quoted, and of what the preprocessor reads. */
export function withoutWords(text: string): string {
    const blank = (found: string) => found.replace(/[^\n]/g, " ");
    const words = /\/\/[^\n]*|\/\*[^]*?\*\/|R"(\w*)\([^]*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'|^#[^\n]*(?:\\\n[^\n]*)*/gm;
    return text.replace(words, blank);
}

/** The end of what a parenthesis at `begin` opens, behind the one that closes it; -1 when none does. */
function closing(code: string, begin: number): number {
    let depth = 0;
    for (let at = begin; at < code.length; ++at) {
        if (code[at] === "(") ++depth;
        else if (code[at] === ")" && --depth === 0) return at + 1;
    }
    return -1;
}

function constant(literal: string): string {
    if (literal === "true") return "false";
    if (literal === "false") return "true";
    if (/[.]/.test(literal)) return `(2 * ${literal})`;
    const [, digits = "", suffix = ""] = /^([0-9']+)(.*)$/.exec(literal) ?? [];
    return `${BigInt(digits.replaceAll("'", "")) + 1n}${suffix}`;
}

/** Every mutant of a source, in the order of the text. */
export function mutantsOf(file: string, text: string): Mutant[] {
    const code = withoutWords(text);
    const found: Mutant[] = [];
    const add = (kind: Kind, offset: number, length: number, becomes: string) =>
        found.push({ file, offset, was: text.slice(offset, offset + length), becomes, kind });

    // Operators stand between blanks; angle brackets and references do not.
    for (const match of code.matchAll(/(?<= )(==|!=|<=|>=|<|>|&&|\|\||[-+*/])(?= )/g)) {
        const operator = match[0];
        const kind = /[=<>]/.test(operator) ? "comparison" : /[&|]/.test(operator) ? "logic" : "arithmetic";
        add(kind, match.index, operator.length, opposites[operator] ?? operator);
    }
    for (const match of code.matchAll(/(?<![\w.'])(?:\d[\d']*(?:\.\d+)?(?:ms|us|s|min|U|F|LL|L)?|true|false)(?![\w.'])/g))
        if (!/\) [\w ]*= $/.test(code.slice(0, match.index))) add("constant", match.index, match[0].length, constant(match[0])); // Not one that makes a function pure.
    for (const match of code.matchAll(/\bif \(/g)) {
        const begin = match.index + match[0].length - 1;
        const end = closing(code, begin);
        // One that declares something cannot be put into parentheses.
        const condition = code.slice(begin, end);
        if (end > 0 && !/^\((?:const|auto|static) |[^=!<>]=[^=]|;/.test(condition)) add("condition", begin, end - begin, `(!${text.slice(begin, end)})`);
    }
    // A statement is a call or an assignment that begins its line; a declaration has a blank before its name.
    for (const match of code.matchAll(/^ +(?!return\b|throw\b|co_|static_assert\b|if\b|for\b|while\b|switch\b|.*= (?:delete|default);$)((?:\+\+|--)?[\w:\->.\[\]]+(?:(?:\(| [-+*/|&^]?= )[^{};]*)?;)$/gm)) {
        const statement = match[1] ?? "";
        const depth = (statement.match(/\(/g)?.length ?? 0) - (statement.match(/\)/g)?.length ?? 0);
        if (depth === 0) add("statement", match.index + match[0].length - statement.length, statement.length, "{}");
    }
    for (const match of code.matchAll(/(?<=[ (!]\w[\w:.\->]*\()([\w.:\->]+), ([\w.:\->]+)(?=[,)])/g)) {
        const line = code.slice(code.lastIndexOf("\n", match.index) + 1, code.indexOf("\n", match.index));
        const [pair, first, second] = match;
        // A line that begins in the first column declares a function.
        if (first !== second && line.startsWith(" ")) add("arguments", match.index, pair.length, `${second}, ${first}`);
    }
    return found.sort((one, other) => one.offset - other.offset);
}
