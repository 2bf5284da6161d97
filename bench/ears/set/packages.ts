// The packages that carry recordings of people and of things: fetched as they are published, unpacked beside the set, never installed.

import { existsSync, mkdirSync, readdirSync, renameSync, rmSync } from "node:fs";
import { join } from "node:path";

export const debian = [
    "asterisk-core-sounds-en",
    "asterisk-core-sounds-en-g722",
    "codec2-examples",
    "klettres-data",
    "pocketsphinx-testdata",
    "tuxpaint-stamps-default",
];
export const npm = ["nodejs-whisper@0.3.1"];

export async function run(command: string[], folder: string): Promise<Uint8Array> {
    const process = Bun.spawn(command, { cwd: folder, stdin: "ignore", stdout: "pipe", stderr: "pipe" });
    const [output, problem, code] = await Promise.all([
        new Response(process.stdout).bytes(),
        new Response(process.stderr).text(),
        process.exited,
    ]);
    if (code !== 0) throw new Error(`${command.slice(0, 4).join(" ")}…: ${problem.trim().slice(-400) || `exit code ${code}`}`);
    return output;
}

/** Where a package's files are once it has been fetched. */
export const folderOf = (folder: string, name: string): string => join(folder, name.replace(/@[^@/]*$/, ""));

/** Fetches into `folder` what is not there yet. */
export async function fetchPackages(folder: string): Promise<void> {
    mkdirSync(folder, { recursive: true });
    for (const name of [...debian, ...npm]) {
        const place = folderOf(folder, name);
        if (existsSync(place)) continue;
        console.error(`==> fetching ${name}`);
        const arriving = `${place}.arriving`;
        rmSync(arriving, { recursive: true, force: true });
        mkdirSync(arriving, { recursive: true });
        const isDebian = debian.includes(name);
        await run(isDebian ? ["apt-get", "download", "-qq", name] : ["npm", "pack", "--silent", "--ignore-scripts", name], arriving);
        const archive = readdirSync(arriving).find((file) => file.endsWith(isDebian ? ".deb" : ".tgz"));
        if (!archive) throw new Error(`${name} brought no archive`);
        await run(isDebian ? ["dpkg-deb", "-x", archive, "."] : ["tar", "-xzf", archive], arriving);
        rmSync(join(arriving, archive));
        renameSync(arriving, place);
    }
}
