import { afterEach, expect, test } from "bun:test";
import { existsSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fetchedModels } from "../../src/base/models.ts";
import { usage } from "../../src/models/modelCommand.ts";
import { serveFile, type FileServer, type Manner } from "../support/fileServer.ts";
import { temporaryFolder } from "../support/folders.ts";

const contents = new Uint8Array(50_000).fill(3);
const sha256 = new Bun.CryptoHasher("sha256").update(contents).digest("hex");
const model = { name: "tried", bytes: contents.length, sha256, about: "a trial" };

const servers: FileServer[] = [];
afterEach(() => {
  for (const server of servers.splice(0)) server.close();
});

async function serve(manner?: Manner): Promise<FileServer> {
  const server = await serveFile(contents, manner);
  servers.push(server);
  return server;
}

interface Ended {
  code: number;
  output: string;
  errors: string;
}

class Home {
  readonly folder = temporaryFolder();
  readonly file = join(fetchedModels({ HOME: this.folder }), "ggml-tried.bin");

  start(words: string[], environment: Record<string, string> = {}): Bun.Subprocess<"ignore", "pipe", "pipe"> {
    return Bun.spawn([process.execPath, join(import.meta.dir, "tryModel.ts"), ...words], {
      env: { HOME: this.folder, TRIED_MODEL: JSON.stringify(model), ...environment },
      stdin: "ignore",
      stdout: "pipe",
      stderr: "pipe",
    });
  }

  async run(words: string[], environment?: Record<string, string>): Promise<Ended> {
    const child = this.start(words, environment);
    const [output, errors] = await Promise.all([new Response(child.stdout).text(), new Response(child.stderr).text()]);
    return { code: await child.exited, output, errors };
  }
}

test("a model is fetched from the address that is set, is listed, and can be removed again", async () => {
  const home = new Home();
  const server = await serve();
  expect((await home.run(["list"])).output).toBe("tried                    1 MB        a trial\n");
  const added = await home.run(["add", "tried"], { PALOMET_MODELS_URL: `${server.address}/models/` });
  expect([added.code, added.errors]).toEqual([0, ""]);
  expect(added.output).toStartWith(`Fetching tried, 1 MB, from ${server.address}/models\n`);
  expect(added.output).toContain("100 %  1 MB of 1 MB\ntried is here.");
  expect(server.asked).toEqual([{ path: "/models/ggml-tried.bin", from: 0 }]);
  expect((await home.run(["list"])).output).toBe("tried                    1 MB  here  a trial\n");

  const again = await home.run(["add", "tried", "--address", server.address]);
  expect([again.code, again.output]).toEqual([0, "tried is here already.\n"]);
  expect(server.asked).toHaveLength(1);

  expect(await home.run(["remove", "tried"])).toEqual({ code: 0, output: "tried is removed.\n", errors: "" });
  expect(existsSync(home.file)).toBe(false);
  expect(await home.run(["remove", "tried"])).toEqual({ code: 1, output: "", errors: "palomet-engine: tried is not here\n" });
});

test("what was fetched of a model is listed, gone on with and removed", async () => {
  const home = new Home();
  mkdirSync(dirname(home.file), { recursive: true });
  writeFileSync(`${home.file}.part`, contents.subarray(0, 25_000));
  expect((await home.run(["list"])).output).toContain("50 %");
  const broken = await serve({ status: "500 Broken" });
  const failed = await home.run(["add", "tried", "--address", broken.address]);
  expect([failed.code, failed.errors]).toEqual([
    1,
    "palomet-engine: tried could not be fetched: the server answered 500 Broken\nWhat came is kept: the same command goes on from there.\n",
  ]);
  expect((await home.run(["remove", "tried"])).code).toBe(0);
  expect(existsSync(`${home.file}.part`)).toBe(false);
});

test("a file that is damaged is fetched again", async () => {
  const home = new Home();
  const server = await serve();
  mkdirSync(dirname(home.file), { recursive: true });
  writeFileSync(home.file, new Uint8Array(contents.length));
  expect((await home.run(["add", "tried", "--address", server.address])).code).toBe(0);
  expect(Buffer.compare(readFileSync(home.file), contents)).toBe(0);
});

test("the proxy that the environment names is used, but not for hosts that it excepts", async () => {
  const [proxy, server] = [await serve(), await serve()];
  const address = "http://models.invalid/whisper";
  const through = await new Home().run(["add", "tried", "--address", address], { http_proxy: proxy.address });
  expect([through.code, through.errors]).toEqual([0, ""]);
  expect(proxy.asked).toEqual([{ path: `${address}/ggml-tried.bin`, from: 0 }]);

  const around = await new Home().run(["add", "tried", "--address", server.address], { http_proxy: proxy.address, no_proxy: "localhost,127.0.0.1" });
  expect([around.code, around.errors]).toEqual([0, ""]);
  expect([proxy.asked.length, server.asked.length]).toEqual([1, 1]);
});

test("an address behind TLS is asked for through the proxy's tunnel", async () => {
  const proxy = await serve({ status: "502 Bad Gateway" });
  const { code, errors } = await new Home().run(["add", "tried", "--address", "https://models.invalid"], { https_proxy: proxy.address });
  expect([code, proxy.asked[0]?.path]).toEqual([1, "models.invalid:443"]);
  expect(errors).toContain("could not be fetched");
});

test("two at once do not fetch the same model", async () => {
  const home = new Home();
  const server = await serve({ stallsAfter: 25_000 });
  const first = home.start(["add", "tried", "--address", server.address]);
  const reader = first.stdout.getReader();
  let told = "";
  while (!told.includes("50 %")) told += new TextDecoder().decode((await reader.read()).value);
  expect(await home.run(["add", "tried", "--address", server.address])).toEqual({
    code: 1,
    output: "",
    errors: "palomet-engine: tried is being fetched already\n",
  });
  first.kill();
  await first.exited;
  const second = await serve();
  expect((await home.run(["add", "tried", "--address", second.address])).code).toBe(0);
  expect(second.asked[0]?.from).toBe(25_000);
});

test("a folder that cannot be made is said in a line", async () => {
  const home = new Home();
  const { code, errors } = await home.run(["add", "tried", "--address", "http://127.0.0.1:1"], { XDG_DATA_HOME: "/dev/null" });
  expect([code, errors.split("\n")]).toEqual([1, [expect.stringContaining("palomet-engine: tried could not be fetched: "), ""]]);
});

test("the completion and the manual know all that the command does", async () => {
  const packaging = join(import.meta.dir, "../../../packaging");
  const words = new Set(usage.split("\n\n")[0]?.match(/(?<=palomet-engine )[a-z]+|(?<=model )[a-z]+|--[a-z]+/g));
  expect([...words].sort()).toEqual(["--address", "add", "hearing", "list", "model", "remove"]);
  const completion = await Bun.file(join(packaging, "bash-completion/palomet-engine")).text();
  const manual = (await Bun.file(join(packaging, "palomet-engine.1")).text()).replaceAll("\\-", "-");
  for (const word of words) expect([word, completion.includes(word), manual.includes(word)]).toEqual([word, true, true]);
});

test("wrong arguments are refused, and nothing is fetched", async () => {
  const home = new Home();
  const server = await serve();
  const wrong = [[], ["list", "x"], ["add"], ["add", "tried", "x"], ["add", "tried", "--address"], ["remove"], ["remove", "tried", "x"], ["fetch", "tried"]];
  for (const words of wrong) {
    const { code, errors } = await home.run(words, { PALOMET_MODELS_URL: server.address });
    expect([words, code, errors.startsWith("Usage:")]).toEqual([words, 2, true]);
  }
  for (const words of [["add", "other"], ["remove", "other"], ["add", "tried", "--address", "file:///etc"]]) {
    expect((await home.run(words, { PALOMET_MODELS_URL: server.address })).code).toBe(2);
  }
  expect([server.asked, existsSync(dirname(home.file))]).toEqual([[], false]);
});
