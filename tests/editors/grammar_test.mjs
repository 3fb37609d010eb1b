// Tokenizes source files with the grammar in editors/ and the tokenizer of VS Code. Each word of a
// sample must have the expected scope, and no demo or scenario may contain an invalid token.
// Usage: node grammar_test.mjs SOURCE_FOLDER NODE_MODULES
import fs from 'node:fs';
import path from 'node:path';
import {createRequire} from 'node:module';
import {pathToFileURL} from 'node:url';

const [source, modules] = process.argv.slice(2).map((folder) => path.resolve(folder));
const require = createRequire(pathToFileURL(path.join(modules, 'any.js')));
const oniguruma = require(path.join(modules, 'vscode-oniguruma'));
const {Registry, INITIAL, parseRawGrammar} = require(path.join(modules, 'vscode-textmate'));

async function loadGrammar() {
  const wasm = fs.readFileSync(path.join(modules, 'vscode-oniguruma/release/onig.wasm'));
  await oniguruma.loadWASM(wasm.buffer.slice(wasm.byteOffset, wasm.byteOffset + wasm.length));
  const file = path.join(source, 'editors/mheg.tmLanguage.json');
  const registry = new Registry({
    onigLib: Promise.resolve({
      createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
      createOnigString: (text) => new oniguruma.OnigString(text),
    }),
    loadGrammar: async () => parseRawGrammar(fs.readFileSync(file, 'utf8'), file),
  });
  return registry.loadGrammar('source.mheg');
}

// The tokens of a text that are not blank: line number, text and innermost scope.
function tokensOf(grammar, text) {
  const tokens = [];
  let state = INITIAL;
  text.split(/\r?\n/).forEach((line, index) => {
    const result = grammar.tokenizeLine(line, state);
    state = result.ruleStack;
    for (const token of result.tokens) {
      const word = line.slice(token.startIndex, token.endIndex);
      if (word.trim() !== '') tokens.push({line: index + 1, word, scope: token.scopes.at(-1)});
    }
  });
  return tokens;
}

function sourcesBelow(folder) {
  return fs.readdirSync(folder, {recursive: true})
      .filter((name) => name.endsWith('.mheg'))
      .map((name) => path.join(folder, name));
}

// The extension's description must refer to existing files and agree with the grammar.
function testExtension() {
  const folder = path.join(source, 'editors');
  const {contributes} = JSON.parse(fs.readFileSync(path.join(folder, 'package.json'), 'utf8'));
  const [language] = contributes.languages;
  const [grammar] = contributes.grammars;
  JSON.parse(fs.readFileSync(path.join(folder, language.configuration), 'utf8'));
  const {scopeName} = JSON.parse(fs.readFileSync(path.join(folder, grammar.path), 'utf8'));
  if (scopeName !== grammar.scopeName || language.id !== grammar.language) {
    fail('editors/package.json does not describe the grammar');
  }
}

let failures = 0;
function fail(message) {
  console.log(message);
  ++failures;
}

// Each line of the sample's expectations has a word and its scope.
function testSample(grammar) {
  const sample = path.join(source, 'tests/editors/sample.mheg');
  const found = tokensOf(grammar, fs.readFileSync(sample, 'utf8'))
      .map(({word, scope}) => `${word.trim()}  ${scope}`);
  const expected =
      fs.readFileSync(path.join(source, 'tests/editors/sample.scopes'), 'utf8').trimEnd().split('\n');
  for (let i = 0; i < Math.max(found.length, expected.length); ++i) {
    if (found[i] !== expected[i]) fail(`sample: found "${found[i]}", expected "${expected[i]}"`);
  }
}

function testSources(grammar) {
  const files = [...sourcesBelow(path.join(source, 'examples')),
    ...sourcesBelow(path.join(source, 'tests/scenarios')),
    ...sourcesBelow(path.join(source, 'tools/mheg/new/template'))];
  if (files.length < 100) fail(`only ${files.length} source files were found`);
  for (const file of files) {
    for (const {line, word, scope} of tokensOf(grammar, fs.readFileSync(file, 'utf8'))) {
      if (scope.startsWith('invalid') || scope === 'source.mheg') {
        fail(`${file}:${line}: "${word}" is ${scope}`);
      }
    }
  }
  console.log(`${files.length} source files are tokenized`);
}

const grammar = await loadGrammar();
testExtension();
testSample(grammar);
testSources(grammar);
process.exit(failures > 0 ? 1 : 0);
