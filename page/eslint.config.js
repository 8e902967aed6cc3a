import js from '@eslint/js';

const known = (names) => Object.fromEntries(names.map((name) => [name, 'readonly']));

export default [
    js.configs.recommended,
    {
        rules: {
            eqeqeq: 'error',
            'no-var': 'error',
            'prefer-const': 'error',
            'no-shadow': 'error',
            'no-unused-vars': ['error', { args: 'after-used' }],
            'max-len': ['error', { code: 120 }],
        },
    },
    {
        files: ['**/scripts/*.js'],
        languageOptions: {
            globals: known([
                'atob', 'Blob', 'clearInterval', 'clearTimeout', 'document', 'history', 'location', 'performance',
                'requestAnimationFrame', 'setInterval', 'setTimeout', 'TextDecoder', 'TextEncoder', 'URL', 'window',
                'WebAssembly',
            ]),
        },
    },
    {
        files: ['**/*.mjs'],
        languageOptions: {
            globals: known(['Buffer', 'console', 'performance', 'process', 'setTimeout', 'URL', 'window', 'document']),
        },
    },
];
