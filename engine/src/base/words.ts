// The words of a text in the form in which texts are compared.

/** The words of a text in lower case, without accents and punctuation. */
export function plainWords(text: string): string[] {
  const plain = text.normalize("NFD").replace(/\p{M}/gu, "").toLowerCase();
  return plain.replace(/[^\p{L}\p{N}]+/gu, " ").trim().split(" ").filter((word) => word !== "");
}
